#include "apps/gallery/ExampleTasks.h"

#include "apps/gallery/Texts.h"

namespace corvane::gallery {

namespace {

std::vector<ExampleSection> inUsersLanguage(std::vector<ExampleSection> sections) {
    for (auto& section : sections) {
        section.title = localized(section.title);
        for (auto& task : section.tasks)
            for (auto* text : {&task.title, &task.note, &task.due})
                if (!text->empty()) *text = localized(*text);
    }
    return sections;
}

}  // namespace

std::vector<ExampleSection> exampleTasksForHome() {
    return inUsersLanguage({
        {"Today",
         {{"Water the tomatoes", "The ones on the balcony, too", "4 May", false, 4, 36},
          {"Call the dentist", "", "4 May", true, 1, 0},
          {"Buy milk, bread and eggs", "Rye, if they have it", "4 May", false, 2, 6},
          {"Answer Aunt Milena's long letter about the house by the lake, and ask whether the "
           "boat is still there",
           "", "4 May", false, 6, 1}}},
        {"This week",
         {{"Return the library books", "Three of them", "6 May", false, 5, 6},
          {"Fix the garden gate", "", "7 May", false, 3, 16},
          {"Bake for the school fair", "Two trays", "8 May", false, 7, 24}}},
        {"Some day",
         {{"Learn to fold paper cranes", "", "", false, 0, 4},
          {"Plan the trip to the coast", "By train, with bicycles", "", false, 1, 26},
          {"Sort the photographs", "", "", false, 2, 13}}},
    });
}

std::vector<ExampleSection> exampleTasksForWork() {
    return inUsersLanguage({
        {"Next",
         {{"Send the offer to the printers", "600 copies", "5 May", false, 1, 1},
          {"Review the floor plan", "", "5 May", false, 4, 10},
          {"Book a room for Thursday", "With a screen", "6 May", false, 3, 9}}},
        {"Waiting for",
         {{"Numbers from the accountant", "Asked on 28 April", "", false, 2, 17},
          {"New key for the archive", "", "", true, 6, 3}}},
    });
}

std::vector<std::string> exampleShopping() {
    std::vector<std::string> things;
    for (const char* thing :
         {"Flour", "Yeast", "Sunflower seeds", "String, and a box to put the old letters in"})
        things.push_back(localized(thing));
    return things;
}

std::vector<ExampleSection> manyExampleTasks(std::int64_t count) {
    ExampleSection section{"Tasks", {}};
    section.tasks.reserve(static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i)
        section.tasks.push_back({"Task number " + std::to_string(i), "A second line", "4 May",
                                 i % 5 == 0, i % 8, i % 45});
    return {section};
}

}  // namespace corvane::gallery
