#include "engine/host/quit.hpp"

#include <vector>

namespace tessora::host {

namespace {

struct Quits {
  std::vector<QuitNotice> notices;
  unsigned count = 0;
  bool listening = false;
};

Quits& the_quits() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const quits = new Quits;
  return *quits;
}

PyObject* pygame_quits(PyObject*, PyObject*) {
  return guarded<PyObject*>(nullptr, [] {
    Quits& quits = the_quits();
    ++quits.count;
    quits.listening = false;
    script_ran();
    for (QuitNotice notice : quits.notices) notice();
    return none().release();
  });
}

}  // namespace

void tell_of_quit(QuitNotice notice) {
  the_quits().notices.push_back(notice);
}

void listen_for_quit() {
  Quits& quits = the_quits();
  if (quits.listening) return;
  static PyMethodDef definition = {"pygame_quits", &pygame_quits, METH_NOARGS, nullptr};
  static PyObject* const listener = take(PyCFunction_New(&definition, nullptr)).release();
  Ref listen = modules::pygame["register_quit"_name];
  listen(listener);
  quits.listening = true;
}

unsigned quit_count() {
  return the_quits().count;
}

}  // namespace tessora::host
