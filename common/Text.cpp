#include "common/Text.h"

#include "common/RunTimeError.h"

namespace kv {

PathHalves splitPath(std::string_view path) {
    const auto position = path.rfind('\\');
    if (position == std::string_view::npos) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    return {path.substr(0, position), path.substr(position + 1)};
}

}  // namespace kv
