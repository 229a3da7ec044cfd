// What help() and the stubs tell of attributes and of the accessors that rows make.
#pragma once

#include "engine/object/class.hpp"

namespace tessora::host {

// The row's text, and the value at first where it is a plain one.
std::string with_default(const char* doc, const Step& step);

// What the text of an accessor tells of an attribute, or of two.
std::string told_of(const Attribute& attribute);
std::string told_of(const Attribute& first, const Attribute& second);

}  // namespace tessora::host
