// The base of tables, lists and their rows: a view that is laid out later and once.
#pragma once

#include "corvane/views/LayoutableView.h"

namespace corvane {

using CVMacLayoutableView = views::LayoutableView;

}  // namespace corvane
