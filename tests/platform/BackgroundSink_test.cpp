#include "corvane/platform/BackgroundSink.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::platform {
namespace {

struct LimitedSink final : ByteSink {
    explicit LimitedSink(std::size_t limit) : room(limit) {}
    bool write(std::span<const std::byte> piece) override {
        if (piece.size() > room) return false;
        room -= piece.size();
        text.append(reinterpret_cast<const char*>(piece.data()), piece.size());
        return true;
    }

    std::size_t room;
    std::string text;
};

std::span<const std::byte> bytesOf(const std::string& text) {
    return std::as_bytes(std::span(text));
}

TEST(BackgroundSink, HandsOnEverythingInOrder) {
    for (const int pieces : {0, 1, 10, 400}) {
        SCOPED_TRACE(pieces);
        LimitedSink sink(std::string::npos);
        BackgroundSink background(sink);
        std::string expected;
        for (int i = 0; i < pieces; ++i) {
            // What was written may change as soon as write() is back.
            std::string piece(static_cast<std::size_t>(1 + i * 97 % 30000), char('a' + i % 26));
            expected += piece;
            ASSERT_TRUE(background.write(bytesOf(piece)));
            piece.assign(piece.size(), '?');
        }
        EXPECT_TRUE(background.finish());
        EXPECT_EQ(sink.text, expected);
    }
}

TEST(BackgroundSink, ReportsWhatTheSinkDidNotTake) {
    const std::string piece(100'000, 'x');
    for (const std::size_t limit : {0, 300'000, 1'200'000, 3'950'000}) {
        SCOPED_TRACE(limit);
        LimitedSink sink(limit);
        BackgroundSink background(sink);
        bool isTaken = true;
        for (int i = 0; i < 40 && isTaken; ++i)
            isTaken = background.write(bytesOf(piece));
        EXPECT_FALSE(background.finish());
        EXPECT_EQ(sink.text.size(), limit / piece.size() * piece.size());
        EXPECT_FALSE(isTaken && limit < 3'000'000) << "Went on long after the sink had failed.";
    }
}

TEST(BackgroundSink, HandsOnTheRestWhenItGoes) {
    LimitedSink sink(std::string::npos);
    const std::string piece(400'000, 'x');
    {
        BackgroundSink background(sink);
        for (int i = 0; i < 6; ++i)
            background.write(bytesOf(piece));
    }
    EXPECT_EQ(sink.text.size(), 6 * piece.size());
}

}  // namespace
}  // namespace corvane::platform
