#pragma once

#include <chrono>
#include <functional>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

struct Measured {
    double seconds = 0.0;
    double processorSeconds = 0.0;
    double peakKib = 0.0;
};

/// Runs `body` in a child process and waits for its end; it returns the exit code.
inline Measured RunChild(const std::function<int()>& body) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0)
        _exit(body());
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child)
        throw std::runtime_error("no child process");
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("a run failed");
    const auto secondsOf = [](const timeval& used) {
        return static_cast<double>(used.tv_sec) + 1e-6 * static_cast<double>(used.tv_usec);
    };
    return {time.count(),
            secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss)};
}
