#include "camjob/run/Cores.h"

#include <algorithm>
#include <bit>
#include <thread>
#include <windows.h>

namespace camjob {

unsigned CountCores() {
    DWORD_PTR own = 0;
    DWORD_PTR all = 0;
    if (::GetProcessAffinityMask(::GetCurrentProcess(), &own, &all) != FALSE && own != 0)
        return static_cast<unsigned>(std::popcount(own));
    return std::max(std::thread::hardware_concurrency(), 1U);
}

}  // namespace camjob
