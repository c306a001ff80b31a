#pragma once

#include "camjob/console/OutputStream.h"

#include <chrono>
#include <string>

namespace camjob {

/// A line on a terminal that tells how far a long piece of work is; nothing anywhere else. It is
/// drawn over a few times a second, and gone in the end.
class Progress {
  public:
    using Time = std::chrono::steady_clock::time_point;
    using Clock = Time (*)();

    explicit Progress(OutputStream& stream, Clock clock = &std::chrono::steady_clock::now);
    ~Progress() { Erase(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Starts another piece of work, for example "reading" 400 "files".
    void Begin(const char* verb, long total, const char* things);
    /// One more is done; the name, UTF-8, is that of the next one's file, "" for none.
    void Step(const std::string& name);
    /// Takes the line away, so that other lines can be written.
    void Erase();

  private:
    std::string MakeLine(const std::string& name, Time now) const;
    void Draw(const std::string& line);

    OutputStream& m_stream;
    Clock m_clock;
    bool m_isShown;
    const char* m_verb = "";
    const char* m_things = "";
    long m_total = 0;
    long m_done = 0;
    long m_drawnWidth = 0;
    Time m_begin;
    Time m_nextDraw;
};

}  // namespace camjob
