#include "corvane/platform/SharedText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <thread>
#include <vector>

namespace corvane::platform {
namespace {

std::string characters(std::size_t size) {
    std::string text(size, static_cast<char>('a' + size % 26));
    for (std::size_t i = 0; i < size; i += 101)
        text[i] = static_cast<char>('A' + i % 26);
    return text;
}

// Of all sizes around those at which an arena begins a new stretch of memory, and many enough for
// it to have some of every kind.
std::vector<std::size_t> sizes() {
    std::vector<std::size_t> all = {0, 1, 7, 8, 4080, 4088, 65511, 65512, 65513, 65528, 3 << 20};
    std::mt19937 random(7);
    for (std::size_t total = 0; total < std::size_t{9} << 20; total += all.back())
        all.push_back(random() % 50 == 0 ? random() % 200'000 : random() % 300);
    return all;
}

TEST(SharedText, TextsInAnArenaOutliveItsOtherHolders) {
    ArenaHolder arena(Arena::create());
    std::vector<SharedText> texts;
    for (std::size_t size : sizes())
        texts.emplace_back(characters(size), arena.get());
    for (const SharedText& text : texts)
        ASSERT_EQ(&Arena::of(text.identity()), arena.get());
    arena.reset();

    std::vector<std::thread> threads;
    for (int i = 0; i < 2; ++i)
        threads.emplace_back([copies = texts] {
            for (const SharedText& copy : copies)
                ASSERT_EQ(copy.view(), characters(copy.view().size()));
        });
    while (texts.size() > 1)  // the last holder is one of the smallest
        texts.pop_back();
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(texts.front(), SharedText("")) << "wherever they lie";
    EXPECT_FALSE(texts.front().isAbsent());
}

}  // namespace
}  // namespace corvane::platform
