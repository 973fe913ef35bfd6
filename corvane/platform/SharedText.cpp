#include "corvane/platform/SharedText.h"

#include <cstring>
#include <new>

namespace corvane::platform {

SharedText::SharedText(std::optional<std::string_view> text, Arena* arena) {
    if (!text) return;
    const std::size_t size = text->size();
    Buffer* buffer = nullptr;
    if (arena)
        buffer = new (arena->allocate(sizeof(Buffer) + size, alignof(Buffer))) Buffer{size};
    else
        buffer =
            &(new (::operator new(sizeof(CountedBuffer) + size)) CountedBuffer{{}, {size}})->buffer;
    if (size > 0) std::memcpy(buffer->characters(), text->data(), size);
    bits_ = reinterpret_cast<std::uintptr_t>(buffer) | (arena ? kInArena : 0);
}

void SharedText::destroy() {
    CountedBuffer* buffer = counted();
    buffer->~CountedBuffer();
    ::operator delete(buffer);
}

}  // namespace corvane::platform
