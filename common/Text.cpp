#include "common/Text.h"

#include "common/RunTimeError.h"

namespace kv {
namespace {

std::size_t lastBackslash(std::string_view path, const LeadBytes& leadBytes) noexcept {
    std::size_t last = std::string_view::npos;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] == '\\')
            last = i;
        else if (leadBytes[static_cast<unsigned char>(path[i])])
            ++i;
    }
    return last;
}

}  // namespace

PathHalves splitPath(std::string_view path, const LeadBytes& leadBytes) {
    const std::size_t position = lastBackslash(path, leadBytes);
    if (position == std::string_view::npos) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    return {path.substr(0, position), path.substr(position + 1)};
}

bool endsWithBackslash(std::string_view path, const LeadBytes& leadBytes) {
    return !path.empty() && lastBackslash(path, leadBytes) == path.size() - 1;
}

}  // namespace kv
