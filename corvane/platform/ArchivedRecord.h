// A record of any class, as the archive holds it: for programs that look at archives as such.
#pragma once

#include "corvane/platform/Archivable.h"
#include "corvane/platform/ArchiveClasses.h"
#include "corvane/platform/KeyedUnarchiver.h"
#include "corvane/platform/Value.h"

#include <string_view>
#include <vector>

namespace corvane::platform {

class ArchivedRecord final : public Archivable {
  public:
    using Field = KeyedUnarchiver::Field;

    explicit ArchivedRecord(KeyedUnarchiver& coder);

    /// In archive order.
    const std::vector<Field>& fields() const { return fields_; }

    std::string_view archiveClassName() const override { return className_.view(); }
    void encodeWithCoder(KeyedArchiver& coder) const override;

    /// A class table that reads every class as an ArchivedRecord.
    static const ArchiveClasses& anyClass();

  private:
    SharedText className_;
    std::vector<Field> fields_;
};

}  // namespace corvane::platform
