// SPDX-License-Identifier: MIT
/// The root of every class with virtual operations. Derived classes keep the slots in this order
/// and append their own.
#pragma once

#include "core/string.h"

namespace kez {

class DataFile;

class Object {
public:
    Object() = default;
    virtual Object* clone() const; ///< A new object, owned by the caller, or null: not cloneable.
    virtual const String& className() const; ///< The class's own static name.
    virtual String& getName(String& out, bool second) const; ///< `caption` if second, else `name`.
    virtual void serialize(DataFile& file); ///< Moves `name`, then `caption`, through the file.
    virtual ~Object() = default; ///< Slot 4.

    [[nodiscard]] const String& name() const { return name_; }

    void setName(const char* text); ///< A copy of the text; empties the name when null.

    String caption; ///< A second text; the value where objects serve as name and value pairs.

protected:
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;

    String name_;
};

} // namespace kez
