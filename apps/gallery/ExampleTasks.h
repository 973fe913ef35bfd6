// The tasks that the gallery's tables show and edit.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::gallery {

/// A value.
struct ExampleTask {
    std::string title;
    std::string note;
    std::string due;  ///< as it is shown
    bool done = false;
    std::int64_t color = 0;  ///< of the badge, as its indicator a code of the category vocabulary
    std::int64_t indicator = 0;
};

struct ExampleSection {
    std::string title;
    std::vector<ExampleTask> tasks;
};

/// Of a household, in two lists, in the language of the user.
std::vector<ExampleSection> exampleTasksForHome();
std::vector<ExampleSection> exampleTasksForWork();

std::vector<std::string> exampleShopping();

/// As many as one likes, in one section.
std::vector<ExampleSection> manyExampleTasks(std::int64_t count);

}  // namespace corvane::gallery
