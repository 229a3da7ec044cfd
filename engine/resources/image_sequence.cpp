// Finds the numbered files of an image sequence.
#include "engine/host/modules.hpp"
#include "engine/host/paths.hpp"
#include "engine/resources/resource_manager.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;

namespace {

constexpr Py_ssize_t kExtensionLength = 4;

Py_ssize_t last_position(const Ref& path, PyObject* character) {
  Ref position = host::call_method(path, "rfind"_name, character);
  Py_ssize_t result = PyLong_AsSsize_t(position.get());
  if (result == -1 && PyErr_Occurred() != nullptr) throw host::HostError();
  return result;
}

Ref slice(const Ref& path, Py_ssize_t from, Py_ssize_t to) {
  return host::take(PySequence_GetSlice(path.get(), from, to < from ? from : to));
}

bool is_number(const Ref& digits) {
  return host::is_true(host::call_method(digits, "isdigit"_name));
}

// What stands before the frame's number, or an empty reference when there is no number.
Ref prefix_before_underscore(const Ref& path, Py_ssize_t underscore) {
  Py_ssize_t end = host::length(path.get()) - kExtensionLength;
  return is_number(slice(path, underscore + 1, end)) ? slice(path, 0, underscore) : Ref();
}

Ref prefix_before_digits(const Ref& path) {
  Py_ssize_t dot = last_position(path, "."_name);
  if (dot <= 0) {
    host::raise(PyExc_UnboundLocalError, "local variable 'prefix' referenced before assignment");
  }
  Py_ssize_t start = dot;
  while (start > 0 && is_number(slice(path, start - 1, start))) --start;
  return start < dot ? slice(path, 0, start) : Ref();
}

}  // namespace

Ref ResourceManager::GetImageListFiles(PyObject* name) {
  Ref path = message::GetResPath(this, name);
  if (!host::is_set(path)) {
    host::print_line(host::text("ImageList"));
    return host::list();
  }
  Py_ssize_t underscore = last_position(path, "_"_name);
  Ref prefix =
      underscore >= 0 ? prefix_before_underscore(path, underscore) : prefix_before_digits(path);
  if (!prefix) return host::list(path);
  Ref pattern = host::take(PyUnicode_Concat(prefix.get(), "*.png"_name));
  host::print_line(pattern);
  return host::call(host::modules::glob["glob"_name], host::openable_path(pattern.get()));
}

void declare_image_sequences(ResourceBuilder& builder) {
  builder.method<&ResourceManager::GetImageListFiles>(
      "GetImageListFiles", {"fileName"},
      "Return the paths of the PNG files that number the frames of one sequence.\n\n"
      "`fileName` is one of them, such as walk_02.png. Every PNG file whose path begins like the\n"
      "part before the number counts, in the order of the file system: sort the list if the\n"
      "order matters. A file without a number is returned alone, an unknown one gives an empty\n"
      "list. Raises UnboundLocalError for a path with neither an underscore nor an extension.");
}

}  // namespace tessora
