// The domain's vocabularies as choice lists that the whole process shares. Any thread.
#pragma once

#include "corvane/vocabulary/EXChoiceList.h"

#include <memory>

namespace corvane {

/// Each list is made at its first call and stays the same object ever after, with the titles, and
/// for indicators the order, of the languages in force then. The value of an item is its code; the
/// icon is the code as well, where the vocabulary has icons.
class HGChoiceListFactory {
  public:
    HGChoiceListFactory() = delete;

    /// From the highest priority to the lowest; in natural order from the lowest to the highest.
    static std::shared_ptr<const EXChoiceList> priorityChoiceList();
    static std::shared_ptr<const EXChoiceList> priorityChoiceListInNaturalOrder();

    static std::shared_ptr<const EXChoiceList> taskStatusChoiceList();
    static std::shared_ptr<const EXChoiceList> actionStatusChoiceList();
    static std::shared_ptr<const EXChoiceList> projectStatusChoiceList();

    /// Without icons.
    static std::shared_ptr<const EXChoiceList> taskRepeatChoiceList();

    static std::shared_ptr<const EXChoiceList> colorChoiceList();

    /// Sorted by title, the entry for no indicator among the others.
    static std::shared_ptr<const EXChoiceList> indicatorChoiceList();

    /// 360 items without titles; item i is the badge of color i / 45 with indicator i % 45.
    static std::shared_ptr<const EXChoiceList> categoryIconIndexChoiceList();

    /// One item without title.
    static std::shared_ptr<const EXChoiceList> attachmentTypeChoiceList();
};

}  // namespace corvane
