#include "apps/gallery/ExampleProxies.h"

#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/bridge/HGTaskProxyList.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/platform/Clock.h"

#include "apps/gallery/Texts.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

namespace corvane::gallery {

namespace {

struct Example {
    const char* title;
    const char* project;
    std::int16_t priority;
    std::optional<int> dueInDays;
    std::int16_t color;
    std::int16_t indicator;
    bool starred = false;
};

std::shared_ptr<HGTaskProxy> proxyOf(const Example& example) {
    auto task = std::make_shared<HGTaskProxy>();
    task->setTitle(localized(example.title));
    if (*example.project) task->setProjectName(localized(example.project));
    task->setPriority(example.priority);
    if (example.dueInDays)
        task->setDue(EXCalendar::currentCalendar().dateOnlyByAddingDays(
            *example.dueInDays, EXDateOnly(platform::currentClock().now())));
    task->setCategoryColor(example.color);
    task->setCategoryIndicator(example.indicator);
    task->setStarred(example.starred);
    return task;
}

std::shared_ptr<HGTaskProxyList> list(const char* title, std::initializer_list<Example> examples) {
    HGTaskProxyList::TaskProxies tasks;
    for (const Example& example : examples)
        tasks.push_back(proxyOf(example));
    return std::make_shared<HGTaskProxyList>(std::move(tasks), title, localized(title));
}

std::shared_ptr<HGTaskProxyModel> model(HGTaskProxyModel::TaskProxyLists lists) {
    return std::make_shared<HGTaskProxyModel>(std::move(lists));
}

std::shared_ptr<HGTaskProxyModel> inbox() {
    return model({list("New", {{"Ask Jorun for the cake tin", "", 2, {}, 0, 0},
                               {"Look for the tent", "Summer", 1, {}, 5, 26},
                               {"A lamp for the stairs", "House", 2, {}, 6, 16}})});
}

std::shared_ptr<HGTaskProxyModel> today() {
    return model({list("Starred", {{"Pay the plumber", "House", 4, 0, 7, 16, true},
                                   {"Sign the excursion form", "School", 3, 1, 3, 24, true}}),
                  list("Due Today", {{"Sow the winter spinach", "Garden", 2, 0, 5, 36},
                                     {"Check the March bill once more", "House", 3, -2, 7, 1},
                                     {"Collect the prescription", "", 2, 0, 4, 6},
                                     {"Buy candles", "Summer party", 1, 0, 6, 6}})});
}

std::shared_ptr<HGTaskProxyModel> next() {
    return model({list("Due Tomorrow", {{"Order 600 copies", "Printing", 3, 1, 1, 1},
                                        {"Return the library books", "", 2, 1, 5, 6}}),
                  list("Soon", {{"Mend the garden gate, and oil the hinges while you are at it, "
                                 "before it comes off altogether",
                                 "Garden", 2, 4, 3, 16},
                                {"Book the ferry", "Summer", 3, 6, 2, 26},
                                {"Review the floor plan", "Printing", 2, 9, 4, 10}})});
}

std::shared_ptr<HGTaskProxyModel> waitingFor() {
    return model({list("Waiting For", {{"Numbers from the accountant", "Printing", 2, 3, 2, 17},
                                       {"New key for the archive", "", 1, {}, 6, 3}})});
}

}  // namespace

HGTaskProxyModels exampleTaskProxyModels() {
    return {{std::string(HGSharedInfoTaskProxyModelInboxKey), inbox()},
            {std::string(HGSharedInfoTaskProxyModelTodayKey), today()},
            {std::string(HGSharedInfoTaskProxyModelNextKey), next()},
            {std::string(HGSharedInfoTaskProxyModelWaitingForKey), waitingFor()}};
}

}  // namespace corvane::gallery
