#include "corvane/views/TextMeasurer.h"

#include <algorithm>
#include <cmath>

namespace corvane::views {

namespace {

/// In letters: code points, told by the bytes that begin one.
std::size_t lettersIn(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char byte) { return (byte & '\xC0') != '\x80'; }));
}

/// Of one paragraph, broken between words.
struct Lines {
    std::size_t count = 1;
    std::size_t widest = 0;

    Lines(std::string_view paragraph, std::size_t most) {
        std::size_t line = 0;
        while (!paragraph.empty()) {
            const auto end = std::min(paragraph.find(' '), paragraph.size());
            const std::size_t word = lettersIn(paragraph.substr(0, end));
            paragraph.remove_prefix(std::min(end + 1, paragraph.size()));
            if (line > 0 && line + 1 + word > most) {
                ++count;
                line = 0;
            }
            line += (line > 0 ? 1 : 0) + word;
            widest = std::max(widest, line);
        }
    }
};

class EvenLetters final : public TextMeasurer {
  public:
    platform::Size sizeOfText(std::string_view text, const Font& font, double width) override {
        const double letter = font.size / 2;
        const auto most = width > 0 && letter > 0 ? static_cast<std::size_t>(width / letter)
                                                  : std::string_view::npos;
        std::size_t count = 0;
        std::size_t widest = 0;
        for (bool more = true; more;) {
            const auto end = text.find('\n');
            more = end != std::string_view::npos;
            const Lines lines(text.substr(0, end), most);
            if (more) text.remove_prefix(end + 1);
            count += lines.count;
            widest = std::max(widest, lines.widest);
        }
        return {static_cast<double>(widest) * letter,
                static_cast<double>(count) * lineHeight(font)};
    }
    double lineHeight(const Font& font) override { return std::ceil(font.size * 1.25); }
};

}  // namespace

std::atomic<TextMeasurer*>& measurerInForce() {
    static EvenLetters evenLetters;
    static std::atomic<TextMeasurer*> measurer{&evenLetters};
    return measurer;
}

TextMeasurer& textMeasurer() {
    return *measurerInForce();
}

}  // namespace corvane::views
