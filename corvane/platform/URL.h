// An absolute URL as an opaque, exactly compared value, with the few operations that file URLs
// need.
#pragma once

#include "corvane/platform/SharedText.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace corvane::platform {

/// A regular value: cheap to copy (copies share the text), compared and ordered by its exact text,
/// usable as a key of ordered and hashed maps. Nothing is normalised: "a%20b" and "a b" differ.
/// Immutable, so that copies may be used on several threads.
///
///     auto notes = URL::fileURLWithPath("/home/ann/50% done");  // file:///home/ann/50%25%20done
///     notes.lastPathComponent()                                 // "50% done"
///     notes.appendingPathComponent("a#1").path()                // "/home/ann/50% done/a#1"
///     URL::resolving("../bob", notes)                           // file:///home/bob
class URL {
  public:
    /// The empty text, which is no URL.
    URL() = default;

    /// The URL with this text, taken as it stands.
    explicit URL(std::string_view absoluteString) : text_(absoluteString) {}

    /// The same, sharing a text that is held elsewhere too.
    explicit URL(SharedText absoluteString) : text_(std::move(absoluteString)) {}

    /// The file URL of a path: "file://" and the path, with every byte outside the unreserved set
    /// of RFC 3986 (and "/") percent-encoded. A path without a leading "/" is given one.
    static URL fileURLWithPath(std::string_view path);

    /// `relative` resolved against `base` by RFC 3986, section 5.2, in its strict form: what has a
    /// scheme of its own owes nothing to the base. Against the empty URL `relative` stays relative.
    static URL resolving(std::string_view relative, const URL& base);

    /// Lives as long as any copy of this URL.
    std::string_view absoluteString() const { return text_.view(); }

    /// The text as a value that shares it.
    const SharedText& sharedText() const { return text_; }

    bool isFileURL() const { return absoluteString().starts_with("file://"); }

    /// The decoded path of a file URL, without query and fragment; none for another scheme, a host
    /// other than "localhost" or an encoded NUL. A "%" without two hex digits stands for itself.
    std::optional<std::string> path() const;

    /// What follows the last "/" of the path, percent-decoded; empty where there is none, which is
    /// also the case for a path that ends in "/".
    std::string lastPathComponent() const;

    /// This URL with "/" and the percent-encoded component added to its path, before any query or
    /// fragment. Where the two meet there is one "/" only; those inside the component stay.
    URL appendingPathComponent(std::string_view component) const;

    friend bool operator==(const URL& a, const URL& b) {
        return a.text_.identity() == b.text_.identity() || a.absoluteString() == b.absoluteString();
    }
    friend std::strong_ordering operator<=>(const URL& a, const URL& b) {
        return a.absoluteString() <=> b.absoluteString();
    }

  private:
    SharedText text_;
};

/// Writes the absolute text.
std::ostream& operator<<(std::ostream& stream, const URL& url);

}  // namespace corvane::platform

template <>
struct std::hash<corvane::platform::URL> {
    std::size_t operator()(const corvane::platform::URL& url) const noexcept {
        return std::hash<std::string_view>{}(url.absoluteString());
    }
};
