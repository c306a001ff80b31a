#include "camjob/console/Progress.h"

#include "camdata/platform/text/ZetString.h"

#include <algorithm>
#include <cmath>

namespace camjob {

namespace {

constexpr std::chrono::milliseconds kBetweenDraws{100};
/// One less than a terminal's usual width: a full line would break.
constexpr std::size_t kWidth = 79;

bool IsCharacterStart(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

long WidthOf(const std::string& text) {
    return static_cast<long>(std::count_if(text.begin(), text.end(), IsCharacterStart));
}

/// What a name holds must not steer the terminal.
std::string Clipped(const std::string& text) {
    std::string clipped;
    std::size_t width = 0;
    for (const char c : text) {
        width += IsCharacterStart(c) ? 1 : 0;
        if (width > kWidth)
            break;
        clipped += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '?' : c;
    }
    return clipped;
}

std::string TimeLeft(double seconds) {
    constexpr double kSecondsAMinute = 60.0;
    const bool isLong = seconds >= 2 * kSecondsAMinute;
    const double count = std::ceil(isLong ? seconds / kSecondsAMinute : seconds);
    return std::to_string(std::lround(count)) + (isLong ? " min left" : " s left");
}

std::string RateText(double rate) {
    constexpr double kSlow = 10.0;
    const ZetString text =
        rate < kSlow ? ZetString::format(L"%.1f/s", rate) : ZetString::format(L"%.0f/s", rate);
    return text.toUtf8();
}

}  // namespace

Progress::Progress(OutputStream& stream, Clock clock)
    : m_stream(stream), m_clock(clock), m_isShown(stream.IsTerminal()) {}

void Progress::Begin(const char* verb, long total, const char* things) {
    m_verb = verb;
    m_things = things;
    m_total = total;
    m_done = -1;
    m_begin = m_clock();
    m_nextDraw = m_begin;
}

void Progress::Step(const std::string& name) {
    ++m_done;
    if (!m_isShown)
        return;
    const Time now = m_clock();
    if (now < m_nextDraw)
        return;
    m_nextDraw = now + kBetweenDraws;
    Draw(Clipped(MakeLine(name, now)));
}

void Progress::Erase() {
    if (m_drawnWidth == 0)
        return;
    Draw("");
    m_stream.Write("\r");
    m_stream.Flush();
}

std::string Progress::MakeLine(const std::string& name, Time now) const {
    std::string line = std::string(m_verb) + " " + std::to_string(m_done) + " of " +
                       std::to_string(m_total) + " " + m_things;
    const double seconds = std::chrono::duration<double>(now - m_begin).count();
    if (seconds > 0.0 && m_done > 0) {
        const double rate = static_cast<double>(m_done) / seconds;
        line +=
            ", " + RateText(rate) + ", " + TimeLeft(static_cast<double>(m_total - m_done) / rate);
    }
    return name.empty() ? line : line + ": " + name;
}

void Progress::Draw(const std::string& line) {
    const long width = WidthOf(line);
    const auto rest = static_cast<std::size_t>(std::max(m_drawnWidth - width, 0L));
    m_stream.Write("\r" + line + std::string(rest, ' '));
    m_stream.Flush();
    m_drawnWidth = width;
}

}  // namespace camjob
