#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace threads {

/// Numbered pieces of work, done by several threads and handed over in their order.
///
/// The thread that takes them works along while the next one is not ready: one thread means that
/// none is started, and each piece is done when it is asked for. No piece is begun more than a
/// window ahead of the one that is asked for, so that what waits does not grow with their number.
class OrderedWork {
  public:
    using Work = std::function<void(std::size_t piece)>;
    /// The thread that takes the pieces.
    enum class Taker {
        kAlone,     ///< apart from those that are started for the work
        kIsHelped,  ///< later, by one more that has other work before
    };
    /// Thrown in place of a piece that is not begun any more.
    struct Stopped {};

    /// `work` is called once for each piece, in several threads at a time. Where the system has no
    /// more threads to give, those that there are do it.
    OrderedWork(std::size_t count, unsigned threads, Work work, Taker taker = Taker::kAlone);
    /// What is begun is ended, nothing more is begun.
    ~OrderedWork();
    OrderedWork(const OrderedWork&) = delete;
    OrderedWork& operator=(const OrderedWork&) = delete;

    static std::size_t WindowOf(unsigned threads);

    /// Works along, in a thread that takes nothing, until the last piece is begun or it is stopped.
    void Help();
    /// Nothing more is begun.
    void Stop();
    /// Waits until the next piece is done. Throws what its work has thrown.
    std::size_t Await();
    /// Its result was taken: the piece that is a window behind it may begin.
    void Release();

  private:
    struct State {
        bool isDone = false;
        std::exception_ptr failure;
    };
    using Lock = std::unique_lock<std::mutex>;

    void Start(unsigned threads, Taker taker);
    bool IsAnyToBegin() const;
    void DoOne(Lock& lock);

    const std::size_t m_count;
    const Work m_work;
    std::mutex m_mutex;
    std::condition_variable m_hasRoom;
    std::condition_variable m_isNextDone;
    std::vector<State> m_states;  ///< by piece, round and round
    std::size_t m_next = 0;       ///< to be handed over
    std::size_t m_begun = 0;
    bool m_isStopped = false;
    std::vector<std::thread> m_threads;
};

/// The results of such work.
template <typename Result>
class ResultsInOrder {
  public:
    using Make = std::function<Result(std::size_t piece)>;

    ResultsInOrder(std::size_t count,
                   unsigned threads,
                   Make make,
                   OrderedWork::Taker taker = OrderedWork::Taker::kAlone)
        : m_make(std::move(make)),
          m_results(OrderedWork::WindowOf(threads)),
          m_work(
              count,
              threads,
              [this](std::size_t piece) { PlaceOf(piece) = m_make(piece); },
              taker) {}

    /// Of the next piece; once for each.
    Result Next() {
        Result result = std::move(*std::exchange(PlaceOf(m_work.Await()), std::nullopt));
        m_work.Release();
        return result;
    }
    /// As OrderedWork.
    void Help() { m_work.Help(); }
    void Stop() { m_work.Stop(); }

  private:
    std::optional<Result>& PlaceOf(std::size_t piece) {
        return m_results[piece % m_results.size()];
    }

    Make m_make;
    std::vector<std::optional<Result>> m_results;
    OrderedWork m_work;  ///< ends before what it works with
};

/// Does pieces of work that know nothing of each other, in several threads where there are any.
/// Throws what the first of them has thrown.
void DoAll(const std::vector<std::function<void()>>& pieces, unsigned threads);

}  // namespace threads
