// The name under which a record stores a value.
#pragma once

#include <concepts>
#include <string_view>

namespace corvane::platform {

/// Can only be made from a text that is a constant of the program: archives are a file format, and
/// keys known to stay in place can be recognised by their address.
///
///     constexpr std::string_view kTitleKey = "HGTaskProxyTitle";
///     coder.encodeText(kTitleKey, title_);
class ArchiveKey {
  public:
    template <std::convertible_to<std::string_view> Text>
    consteval ArchiveKey(const Text& name) : name_(name) {}  // NOLINT: stands in for the text

    constexpr std::string_view name() const { return name_; }

    /// Whether both are the same constant. Equal texts in different places are not.
    friend constexpr bool isSame(ArchiveKey a, ArchiveKey b) {
        return a.name_.data() == b.name_.data() && a.name_.size() == b.name_.size();
    }

  private:
    std::string_view name_;
};

}  // namespace corvane::platform
