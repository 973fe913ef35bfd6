// The names under which a backup document keeps the domain's codes, so that it does not depend on
// them. Shared tables, built on first use; any thread, to read only.
#pragma once

#include "corvane/formats/EXXMLType.h"

namespace corvane {

/// For EXXMLTypeEnum, to write and to read the same field. Names repeat between mappings and mean
/// something only together with their field. A code without a name is not kept: its element stays
/// empty and is read back as no value.
///
///     HGCorvaneBackupConstants::projectStatusMapping().keyForObject("OnHold")    // 2
///     HGCorvaneBackupConstants::taskStatusMapping().keyForObject("OnHold")       // 5
class HGCorvaneBackupConstants {
  public:
    HGCorvaneBackupConstants() = delete;

    static const EXXMLMapping& colorMapping();

    /// Of the indicators 0 to 33; the later ones have no names.
    static const EXXMLMapping& indicatorMapping();

    static const EXXMLMapping& priorityMapping();
    static const EXXMLMapping& projectStatusMapping();
    static const EXXMLMapping& taskStatusMapping();
    static const EXXMLMapping& taskSourceMapping();
    static const EXXMLMapping& taskRepeatMapping();
    static const EXXMLMapping& customRepeatFrequencyMapping();
    static const EXXMLMapping& actionStatusMapping();
    static const EXXMLMapping& attachmentTypeMapping();
};

}  // namespace corvane
