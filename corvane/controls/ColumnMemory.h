// The columns of a list as the user's settings keep them.
#pragma once

#include <string>

namespace corvane {

class TabularColumns;

/// Widths and sorting. Those of other columns that are kept under the name stay. Nothing without a
/// name.
void rememberColumns(const std::string& name, const TabularColumns& columns);

/// What is not kept under the name, or damaged, or of no column, changes nothing; a column that
/// cannot be sorted by any more is not sorted by.
void restoreColumns(const std::string& name, TabularColumns& columns);

}  // namespace corvane
