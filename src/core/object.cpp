// SPDX-License-Identifier: MIT
#include "core/object.h"

#include "core/data_file.h"

namespace kez {

Object* Object::clone() const
{
    return nullptr;
}

const String& Object::className() const
{
    static const String own("Object");
    return own;
}

String& Object::getName(String& out, bool second) const
{
    out = second ? caption : name_;
    return out;
}

void Object::serialize(DataFile& file)
{
    file.transfer(name_);
    file.transfer(caption);
}

void Object::setName(const char* text)
{
    name_ = text != nullptr ? String(text) : String();
}

} // namespace kez
