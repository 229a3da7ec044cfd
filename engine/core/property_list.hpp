// Apple property lists: XML elements as dictionaries, and readers of their entries.
#pragma once

#include "engine/host/value.hpp"

namespace tessora {

// The dictionary that a `dict` element stands for. The element is anything that can be iterated
// and whose children have `tag` and `text`.
host::Ref tree_to_dict(host::Value tree);

// The dictionary at the top level of a property-list file. A file that is no such list, or that
// makes the parser work for more than is written in it, is a ValueError or a ParseError, which is
// Python's error for broken XML; the text names the file.
host::Ref parse_property_list(host::Value path);

// What int() gives, which for a text of very many digits would take long: ValueError then.
host::Ref integer_of(host::Value text);

void register_property_list(PyObject* module);

}  // namespace tessora
