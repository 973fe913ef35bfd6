// How the questions and notices of an overview's tables find the hooks of its controller. For the
// overview's own files.
#pragma once

#include "corvane/controls/CVMacOverview.h"
#include "corvane/models/CVOverviewController.h"

#include <type_traits>
#include <utility>

namespace corvane {

/// Makes operations of a table's data source or delegate, which call one hook with whatever they
/// get behind the table. Where there is no hook for the table, or no controller, the answer is a
/// value of its type that says no: false, 0, none, null.
struct CVMacOverview::Hooks {
    CVMacOverview& overview;

    /// A type for the answer may be given where it is not the hook's own.
    template <class Answer = void, class Hook>
    auto ofBothLists(Hook navigationHook, Hook overviewHook) const {
        return [&view = overview, navigationHook, overviewHook](const Table& table,
                                                                auto&&... arguments) {
            const List list = view.listOf(table);
            const auto controller = view.controller();
            using Result = std::invoke_result_t<Hook, Controller&, decltype(arguments)...>;
            using Given = std::conditional_t<std::is_void_v<Answer>, Result, Answer>;
            if (!controller || list == List::None) return Given();
            const Hook hook = list == List::Navigation ? navigationHook : overviewHook;
            return Given(((*controller).*hook)(std::forward<decltype(arguments)>(arguments)...));
        };
    }

    template <class Hook>
    auto ofOverviewAlone(Hook hook) const {
        return [&view = overview, hook](const Table& table, auto&&... arguments) {
            const auto controller = view.controller();
            using Result = std::invoke_result_t<Hook, Controller&, decltype(arguments)...>;
            if (!controller || view.listOf(table) != List::Overview) return Result();
            return ((*controller).*hook)(std::forward<decltype(arguments)>(arguments)...);
        };
    }
};

}  // namespace corvane
