// Apple property lists: XML elements as host dictionaries, and readers of their entries.
#pragma once

#include "engine/host/ref.hpp"

namespace tessora {

// The dictionary that a `dict` element stands for. The element is anything that can be iterated
// and whose children have `tag` and `text`.
host::Ref tree_to_dict(PyObject* tree);

// The dictionary at the top level of a property-list file. A file that is no such list, or that
// declares entities, is a ValueError or a ParseError, which is the host's error for broken XML.
host::Ref parse_property_list(PyObject* path);

void register_property_list(PyObject* module);

}  // namespace tessora
