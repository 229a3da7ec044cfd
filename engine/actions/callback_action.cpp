#include "engine/actions/concrete_actions.hpp"

namespace tessora {

using namespace host::literals;
using host::Ref;

void CallBackAction::construct(PyObject* seconds, PyObject* function, PyObject* params) {
  construct_timed(seconds);
  write(callbackFunc, function);
  write(callbackParams, params);
}

void CallBackAction::update(PyObject* delay) {
  auto call_back = [&] {
    Ref function = read(callbackFunc);
    if (host::is_true(function)) host::call(function, read(callbackParams));
  };
  advance(delay, call_back, [](const host::Number&) {});
}

namespace {

host::Method constructor_record;

// Keyword arguments beyond the constructor's own are the callback's.
int initialise(PyObject* self, PyObject* args, PyObject* kwargs) {
  return host::guarded(-1, [&] {
    host::script_ran();
    Ref own = host::take(PyDict_New());
    Ref params = host::take(PyDict_New());
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    while (kwargs != nullptr && PyDict_Next(kwargs, &position, &key, &value) != 0) {
      bool is_own = host::is_text(key, "duration"_name) || host::is_text(key, "callbackFunc"_name);
      host::check(PyDict_SetItem((is_own ? own : params).get(), key, value));
    }
    PyObject* bound[2] = {};
    constructor_record.bind(args, own.get(), bound);
    static_cast<CallBackAction*>(self)->construct(bound[0], bound[1], params.get());
    return 0;
  });
}

}  // namespace

void register_callback_action(PyObject* module) {
  constructor_record.declare("CallBackAction", nullptr, {"duration", "callbackFunc"});
  host::ClassBuilder<CallBackAction> builder("CallBackAction", &host::class_info<GAction>);
  builder.attribute("duration", &CallBackAction::duration, "Seconds until the call.")
      .attribute("callbackFunc", &CallBackAction::callbackFunc, "The function to call, or None.")
      .attribute("callbackParams", &CallBackAction::callbackParams,
                 "Dictionary with the constructor's other keyword arguments.")
      .initialiser(&initialise,
                   host::documentation(
                       "CallBackAction", false, {"duration", "callbackFunc", "**callbackParams"},
                       "Calls a function once, when `duration` seconds are over.\n\n"
                       "The function gets one argument: the dictionary `callbackParams`."))
      .method<&CallBackAction::update>(
          "update", {"delay"},
          "Add `delay` seconds and call the function when the time is up.\n\n"
          "An error in the function passes on, and it is called again at the next update.");
  builder.finish(module);
}

}  // namespace tessora
