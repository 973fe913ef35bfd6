#include "corvane/platform/SharedText.h"

#include "corvane/platform/Arena.h"

#include <cstring>
#include <new>

namespace corvane::platform {

SharedText::SharedText(std::optional<std::string_view> text, Arena* arena) {
    if (!text) return;
    const std::size_t size = sizeof(Buffer) + text->size();
    void* place = arena ? arena->allocate(size, alignof(Buffer)) : ::operator new(size);
    buffer_ = new (place) Buffer{{}, text->size(), arena};
    if (!text->empty()) std::memcpy(buffer_->characters(), text->data(), text->size());
}

void SharedText::destroy() {
    Arena* arena = buffer_->arena;
    buffer_->~Buffer();
    arena ? arena->release() : ::operator delete(buffer_);
}

}  // namespace corvane::platform
