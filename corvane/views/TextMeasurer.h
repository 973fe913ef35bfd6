// How much room a text takes: the seam to whoever knows the fonts.
#pragma once

#include "corvane/platform/ScopedOverride.h"
#include "corvane/platform/Size.h"
#include "corvane/views/Font.h"

#include <atomic>
#include <string_view>

namespace corvane::views {

/// One thread: the one that lays out.
class TextMeasurer {
  public:
    virtual ~TextMeasurer() = default;

    /// In points, for all lines. Lines end at line breaks and, with a width above 0, between words
    /// before they grow wider than that. An empty text has one line.
    virtual platform::Size sizeOfText(std::string_view text, const Font& font,
                                      double width = 0) = 0;
    virtual double lineHeight(const Font& font) = 0;
};

/// The measurer in force. Without a toolkit it is one for which all letters are half as wide as the
/// font's size, and lines 1.25 times as high, rounded up: the same on every machine.
TextMeasurer& textMeasurer();

std::atomic<TextMeasurer*>& measurerInForce();

using ScopedTextMeasurer = platform::ScopedOverride<TextMeasurer, measurerInForce>;

}  // namespace corvane::views
