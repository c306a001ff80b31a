#include "threads/OrderedWork.h"

#include <algorithm>

namespace threads {

OrderedWork::OrderedWork(std::size_t count, unsigned threads, Work work, Taker taker)
    : m_count(count), m_work(std::move(work)), m_states(WindowOf(threads)) {
    Start(threads, taker);
}

OrderedWork::~OrderedWork() {
    Stop();
    for (std::thread& thread : m_threads)
        thread.join();
}

void OrderedWork::Stop() {
    {
        const Lock lock(m_mutex);
        m_isStopped = true;
    }
    m_hasRoom.notify_all();
    m_isNextDone.notify_one();
}

/// Enough that a piece of a thousand times the usual work keeps the others busy for a while.
std::size_t OrderedWork::WindowOf(unsigned threads) {
    constexpr std::size_t kPiecesAThread = 64;
    return threads > 1 ? kPiecesAThread * threads : 1;
}

void OrderedWork::Start(unsigned threads, Taker taker) {
    const std::size_t ofCaller = taker == Taker::kIsHelped ? 2 : 1;
    try {
        m_threads.reserve(std::min<std::size_t>(threads, m_count));
        // The taking thread does a piece, too.
        while (m_threads.size() + ofCaller < threads && m_threads.size() + 1 < m_count)
            m_threads.emplace_back([this] { Help(); });
    } catch (const std::exception&) {
        // The taking thread does alone what nobody helps with.
    }
}

void OrderedWork::Help() {
    Lock lock(m_mutex);
    while (!m_isStopped && m_begun < m_count) {
        if (IsAnyToBegin())
            DoOne(lock);
        else
            m_hasRoom.wait(lock);
    }
}

bool OrderedWork::IsAnyToBegin() const {
    return !m_isStopped && m_begun < m_count && m_begun < m_next + m_states.size();
}

void OrderedWork::DoOne(Lock& lock) {
    const std::size_t piece = m_begun++;
    lock.unlock();
    std::exception_ptr failure;
    try {
        m_work(piece);
    } catch (...) {
        failure = std::current_exception();
    }
    lock.lock();
    m_states[piece % m_states.size()] = {true, std::move(failure)};
    if (piece == m_next)
        m_isNextDone.notify_one();
}

std::size_t OrderedWork::Await() {
    Lock lock(m_mutex);
    State& state = m_states[m_next % m_states.size()];
    while (!state.isDone) {
        if (IsAnyToBegin())
            DoOne(lock);
        else if (m_isStopped && m_begun == m_next)
            throw Stopped();
        else
            m_isNextDone.wait(lock);
    }
    if (state.failure)
        std::rethrow_exception(std::move(state.failure));
    return m_next;
}

void OrderedWork::Release() {
    const Lock lock(m_mutex);
    m_states[m_next % m_states.size()] = {};
    ++m_next;
    // Not for each piece: to wake a thread costs about as much as a small member.
    if (m_next + m_states.size() - m_begun >= m_states.size() / 2)
        m_hasRoom.notify_all();
}

void DoAll(const std::vector<std::function<void()>>& pieces, unsigned threads) {
    OrderedWork work(pieces.size(), threads, [&](std::size_t piece) { pieces[piece](); });
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        work.Await();
        work.Release();
    }
}

}  // namespace threads
