#include "engine/host/files.hpp"

#include "engine/host/caught.hpp"
#include "engine/host/modules.hpp"
#include "engine/host/paths.hpp"

namespace tessora::host {

namespace {

constinit Module builtins{"builtins"};

Ref native_path(Value path) {
  Ref name = path_text(path);
  if (!name.is_text()) raise(PyExc_TypeError, "a file is named by a text or a path, not %R", path);
  return openable_path(name);
}

bool asks(Value question, Value path) {
  Ref answer = modules::path[question](path);
  return answer.is_true();
}

// Runs `body`, which uses the open file, and closes that in any case.
template <class Body>
void with_open(Value file, Body body) {
  Ref error = caught(PyExc_BaseException, body);
  Ref closing = caught(PyExc_BaseException, [&] { file.call("close"_name); });
  if (error || closing) raise_again(error ? error : closing);
}

void write(Value path, Value data, bool is_new) {
  Ref file = builtins["open"_name](path, is_new ? "xb"_name : "wb"_name);
  with_open(file, [&] {
    file.call("write"_name, data);
    file.call("flush"_name);
    if (!is_new) return;
    // The new content must have reached the disk before it takes the place of the old.
    Ref number = file.call("fileno"_name);
    modules::os["fsync"_name](number);
  });
}

void replace(Value target, Value data) {
  Ref random = modules::os["urandom"_name](8);
  Ref mark = random.call("hex"_name);
  Ref temporary = formatted("%S.%S.tmp", target, mark);
  Ref error = caught(PyExc_BaseException, [&] {
    write(temporary, data, true);
    if (asks("exists"_name, target)) import("shutil", "copymode"_name)(target, temporary);
    modules::os["replace"_name](temporary, target);
  });
  if (!error) return;
  Ref ignored = caught(PyExc_OSError, [&] { modules::os["remove"_name](temporary); });
  // The temporary file is nobody's business.
  Ref number = error.find_attr("errno"_name);
  if (number && number.is_set()) error.set_attr("filename"_name, target);
  raise_again(error);
}

}  // namespace

void write_whole_file(Value path, Value text) {
  Ref name = native_path(path);
  Ref data = text.call("encode"_name, "utf-8"_name);
  // A link stays one.
  Ref target = modules::path["realpath"_name](name);
  // A device or a pipe cannot be put in place of itself.
  if (asks("exists"_name, target) && !asks("isfile"_name, target) && !asks("isdir"_name, target)) {
    return write(target, data, false);
  }
  replace(target, data);
}

Ref read_whole_file(Value path, Py_ssize_t limit) {
  Ref name = native_path(path);
  // Opening a pipe would wait for ever.
  if (asks("exists"_name, name) && !asks("isfile"_name, name)) {
    raise(PyExc_OSError, "%S is no file", name);
  }
  Ref file = builtins["open"_name](name, "rb"_name);
  Ref data;
  with_open(file, [&] { data = file.call("read"_name, limit + 1); });
  if (data.length() > limit) raise(PyExc_ValueError, "the file has more than %zd bytes", limit);
  Ref text;
  Ref error =
      caught(PyExc_UnicodeDecodeError, [&] { text = data.call("decode"_name, "utf-8"_name); });
  if (error) raise(PyExc_ValueError, "the file is no UTF-8 text: %S", error);
  return text;
}

}  // namespace tessora::host
