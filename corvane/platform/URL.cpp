#include "corvane/platform/URL.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace corvane::platform {

namespace {

constexpr std::string_view kFileScheme = "file://";

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isUnreserved(char c) {
    return isLetter(c) || isDigit(c) || c == '-' || c == '.' || c == '_' || c == '~';
}

std::string percentEncoded(std::string_view text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(text.size());
    for (char c : text) {
        if (isUnreserved(c) || c == '/') {
            encoded += c;
            continue;
        }
        auto byte = static_cast<unsigned char>(c);
        encoded += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return encoded;
}

int hexValue(char c) {
    if (isDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::string percentDecoded(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool complete = text[i] == '%' && i + 2 < text.size();
        int high = complete ? hexValue(text[i + 1]) : -1;
        int low = complete ? hexValue(text[i + 2]) : -1;
        if (high < 0 || low < 0) {
            decoded += text[i];
            continue;
        }
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return decoded;
}

// The five components of RFC 3986, section 3; an empty one differs from an absent one.
struct Parts {
    std::optional<std::string_view> scheme;
    std::optional<std::string_view> authority;
    std::string_view path;
    std::optional<std::string_view> query;
    std::optional<std::string_view> fragment;
};

// Cuts `text` before `mark` and returns what stands behind the mark.
std::optional<std::string_view> cutBehind(std::string_view& text, char mark) {
    auto at = text.find(mark);
    if (at == text.npos) return std::nullopt;
    auto behind = text.substr(at + 1);
    text = text.substr(0, at);
    return behind;
}

std::optional<std::string_view> cutScheme(std::string_view& text) {
    auto isInScheme = [](char c) {
        return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
    };
    auto colon = text.find(':');
    if (colon == text.npos || colon == 0 || !isLetter(text.front())) return std::nullopt;
    auto scheme = text.substr(0, colon);
    if (!std::all_of(scheme.begin(), scheme.end(), isInScheme)) return std::nullopt;
    text.remove_prefix(colon + 1);
    return scheme;
}

Parts split(std::string_view text) {
    Parts parts;
    parts.fragment = cutBehind(text, '#');
    parts.query = cutBehind(text, '?');
    parts.scheme = cutScheme(text);
    if (text.starts_with("//")) {
        auto end = std::min(text.find('/', 2), text.size());
        parts.authority = text.substr(2, end - 2);
        text.remove_prefix(end);
    }
    parts.path = text;
    return parts;
}

void dropLastSegment(std::string& path) {
    auto slash = path.rfind('/');
    path.erase(slash == path.npos ? 0 : slash);
}

// RFC 3986, section 5.2.4.
std::string withoutDotSegments(std::string_view path) {
    std::string result;
    while (!path.empty()) {
        if (path.starts_with("../")) {
            path.remove_prefix(3);
        } else if (path.starts_with("./") || path.starts_with("/./")) {
            path.remove_prefix(2);
        } else if (path == "/.") {
            path = "/";
        } else if (path.starts_with("/../") || path == "/..") {
            path = path.size() == 3 ? "/" : path.substr(3);
            dropLastSegment(result);
        } else if (path == "." || path == "..") {
            path = {};
        } else {
            auto end = std::min(path.find('/', 1), path.size());
            result += path.substr(0, end);
            path.remove_prefix(end);
        }
    }
    return result;
}

// RFC 3986, section 5.2.3.
std::string mergedPath(const Parts& base, std::string_view relativePath) {
    std::string_view folder = "/";
    if (!base.authority || !base.path.empty()) {
        auto slash = base.path.rfind('/');
        folder = base.path.substr(0, slash == base.path.npos ? 0 : slash + 1);
    }
    return std::string(folder).append(relativePath);
}

std::string joined(const Parts& parts) {
    std::string text;
    if (parts.scheme) text.append(*parts.scheme) += ':';
    if (parts.authority) {
        text.append("//").append(*parts.authority);
    } else if (parts.path.starts_with("//")) {
        text += "/.";  // else the first segment would read as a host
    }
    text += parts.path;
    if (parts.query) (text += '?') += *parts.query;
    if (parts.fragment) (text += '#') += *parts.fragment;
    return text;
}

}  // namespace

URL URL::fileURLWithPath(std::string_view path) {
    std::string text(kFileScheme);
    if (!path.starts_with('/')) text += '/';
    return URL(text + percentEncoded(path));
}

URL URL::resolving(std::string_view relative, const URL& base) {
    Parts target = split(relative);
    const Parts from = split(base.absoluteString());
    std::string path = withoutDotSegments(target.path);
    if (!target.scheme) {
        target.scheme = from.scheme;
        if (!target.authority) {
            target.authority = from.authority;
            if (target.path.empty()) {
                path = from.path;
                if (!target.query) target.query = from.query;
            } else if (!target.path.starts_with('/')) {
                path = withoutDotSegments(mergedPath(from, target.path));
            }
        }
    }
    target.path = path;
    return URL(joined(target));
}

std::optional<std::string> URL::path() const {
    if (!isFileURL()) return std::nullopt;
    Parts parts = split(absoluteString());
    if (!parts.authority->empty() && *parts.authority != "localhost") return std::nullopt;
    std::string path = percentDecoded(parts.path);
    if (path.find('\0') != path.npos) return std::nullopt;
    return path;
}

std::string URL::lastPathComponent() const {
    std::string_view path = split(absoluteString()).path;
    auto slash = path.rfind('/');
    return slash == path.npos ? std::string() : percentDecoded(path.substr(slash + 1));
}

URL URL::appendingPathComponent(std::string_view component) const {
    std::string text(absoluteString());
    auto end = std::min(text.find_first_of("?#"), text.size());
    std::string addition = percentEncoded(component);
    bool endsInSlash = end > 0 && text[end - 1] == '/';
    if (endsInSlash && addition.starts_with('/')) addition.erase(0, 1);
    if (!endsInSlash && !addition.starts_with('/')) addition.insert(0, 1, '/');
    return URL(text.insert(end, addition));
}

std::ostream& operator<<(std::ostream& stream, const URL& url) {
    return stream << url.absoluteString();
}

}  // namespace corvane::platform
