#pragma once

namespace camjob {

/// The processor cores that this process may use; at least 1.
unsigned CountCores();

}  // namespace camjob
