// Values as binary property lists: what settings files hold. Functions without state; any thread.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Value.h"

#include <cstddef>
#include <optional>
#include <span>

namespace corvane::platform {

/// How deep lists and maps nest in what is written and read, the outermost included.
inline constexpr unsigned kPropertyListDepth = 64;

/// How much there is at most in what is written and read: 16 for every value and every key, and the
/// bytes of texts and data, of ill-formed texts three times over.
inline constexpr std::size_t kPropertyListWeight = 16 * 1024 * 1024;

/// Whether a property list can say it: flags, numbers, texts, data, moments (less than 291,000
/// years from 2001), and lists and maps of these within the limits, with texts as keys of maps.
/// Null can only be left out.
bool isPropertyListValue(const Value& value);

/// The file with the value; none where isPropertyListValue is false. The same value gives the same
/// bytes. A real that 4 bytes hold exactly takes 4; ill-formed UTF-8 is written as U+FFFD.
///
///     propertyListFromValue(ValueMap{{{"x", 0.5f}, {"name", "Ann"}}})
std::optional<Bytes> propertyListFromValue(const Value& value);

/// The value in the file; none where any part of it is malformed, is nothing that
/// propertyListFromValue writes, or goes beyond the limits. Whatever the bytes are, time and memory
/// stay small.
std::optional<Value> valueFromPropertyList(std::span<const std::byte> file);

}  // namespace corvane::platform
