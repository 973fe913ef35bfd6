#include "corvane/formats/TextBuffer.h"

#include <span>

namespace corvane {

bool TextBuffer::handOver(std::string_view text) {
    if (end_ == buffer_.get()) return false;
    if (text.empty() || sink_.write(std::as_bytes(std::span(text)))) return true;
    at_ = end_ = buffer_.get();
    return false;
}

bool TextBuffer::flush() {
    const std::string_view text(buffer_.get(), static_cast<std::size_t>(at_ - buffer_.get()));
    at_ = buffer_.get();
    return handOver(text);
}

bool TextBuffer::putAround(std::initializer_list<std::string_view> pieces) {
    for (const auto piece : pieces) {
        if (piece.size() >= room() && !flush()) return false;
        if (piece.size() < kSize)
            append(piece);
        else if (!handOver(piece))
            return false;
    }
    return true;
}

}  // namespace corvane
