// Raw bytes that own their storage; a view of bytes is std::span<const std::byte>.
#pragma once

#include <cstddef>
#include <vector>

namespace corvane::platform {

using Bytes = std::vector<std::byte>;

}  // namespace corvane::platform
