#include "corvane/platform/ArchivedClass.h"

#include "corvane/dates/EXDateOnly.h"
#include "corvane/platform/ArchiveFormat.h"

namespace corvane::platform {

namespace {

using Shape = ArchivedClass::Shape;

struct KnownClass {
    std::string_view name;
    Shape shape;
    bool growable = false;
};

constexpr KnownClass kKnownClasses[] = {
    {archive::kListClass, Shape::List}, {archive::kGrowableListClass, Shape::List, true},
    {archive::kMapClass, Shape::Map},   {archive::kGrowableMapClass, Shape::Map, true},
    {archive::kTextClass, Shape::Text}, {archive::kGrowableTextClass, Shape::Text},
    {archive::kDataClass, Shape::Data}, {archive::kGrowableDataClass, Shape::Data},
    {archive::kURLClass, Shape::URL},   {archive::kDateClass, Shape::Date},
    {archive::kNullClass, Shape::Null}, {EXDateOnly::kArchiveClassName, Shape::Day},
};

}  // namespace

void ArchivedClass::recognize(std::string_view candidate, const ArchiveClasses& classes) {
    for (const KnownClass& known : kKnownClasses) {
        if (known.name != candidate) continue;
        shape = known.shape;
        growable = known.growable;
    }
    if (shape != Shape::Unknown) return;
    factory = classes.find(candidate);
    if (factory) shape = Shape::Made;
}

}  // namespace corvane::platform
