#include "camjob/run/Cores.h"

#include <algorithm>
#include <thread>

#ifdef __linux__
#include <sched.h>
#endif

namespace camjob {

unsigned CountCores() {
#ifdef __linux__
    // hardware_concurrency counts those of the machine, whatever the process was bound to.
    cpu_set_t cores;
    if (::sched_getaffinity(0, sizeof cores, &cores) == 0)
        return static_cast<unsigned>(std::max(CPU_COUNT(&cores), 1));
#endif
    return std::max(std::thread::hardware_concurrency(), 1U);
}

}  // namespace camjob
