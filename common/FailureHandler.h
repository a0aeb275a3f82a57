// The edge of a routine that never fails towards its caller: a failure inside it becomes one log
// entry and a number.
#pragma once

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

#include "common/RunTimeError.h"
#include "common/modCmnLog.h"

namespace kv {

class FailureHandler {
public:
    // The routine's name is the source of its entries. The numbers in `serious` are logged as
    // SERV, all others as WARN; the list must outlive the handler.
    FailureHandler(modCmnLog& log, std::string_view routine,
                   std::span<const ErrorNumber> serious = {}) noexcept
        : log_(log), routine_(routine), serious_(serious) {}

    // Runs the step. Returns 0, or the number of the failure, which has been logged.
    template <class Step>
    int operator()(Step&& step) const noexcept {
        try {
            std::forward<Step>(step)();
            return 0;
        } catch (...) {
            return report(currentFailure());
        }
    }

private:
    int report(const RunTimeError& failure) const noexcept {
        const bool serious = std::ranges::any_of(serious_, [&](ErrorNumber number) {
            return static_cast<int>(number) == failure.number();
        });
        log_.cmnLogWrite(failure.number(), failure.what(), routine_,
                         serious ? kLevelServ : kLevelWarn);
        return failure.number();
    }

    modCmnLog& log_;
    std::string_view routine_;
    std::span<const ErrorNumber> serious_;
};

}  // namespace kv
