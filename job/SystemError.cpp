#include "job/SystemError.h"

namespace job {

std::string ReasonBehind(const std::error_code& error) {
    return error ? " (" + error.default_error_condition().message() + ")" : "";
}

std::string ReasonBehind(int systemError) {
    return ReasonBehind(std::error_code(systemError, std::generic_category()));
}

}  // namespace job
