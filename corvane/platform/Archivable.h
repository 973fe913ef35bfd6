// What an object offers to be stored in a keyed archive and restored from one.
#pragma once

#include <string_view>

namespace corvane::platform {

class KeyedArchiver;

/// An object that an archive stores as a record: a class name and values under keys. Decoding is
/// the other half and needs no object yet: a class registers a factory in an ArchiveClasses table.
class Archivable {
  public:
    virtual ~Archivable() = default;

    /// The name under which the class stands in archives. It is part of the file format and must
    /// not change. The text must outlive every archiver that sees this object.
    virtual std::string_view archiveClassName() const = 0;

    /// Writes every field under its key.
    virtual void encodeWithCoder(KeyedArchiver& coder) const = 0;
};

}  // namespace corvane::platform
