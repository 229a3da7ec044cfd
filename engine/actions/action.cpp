#include "engine/actions/action.hpp"

#include "engine/host/attributes.hpp"

namespace tessora {

using namespace host::literals;
using host::Number;
using host::number;

namespace {

// Whether GAction's own method is still the engine's.
bool is_original(const host::Message& method, host::Native native) {
  const host::Method* found = method.find_in(host::type_entry(host::class_info<GAction>.type));
  return found->native == native;
}

PyObject* base_class() {
  return reinterpret_cast<PyObject*>(host::class_info<GAction>.type);
}

}  // namespace

void GAction::construct() {
  write(running, false);
  write(targetNode, Py_None);
  write(runtime, Number(0));
  write(over, false);
}

void GAction::Run() {
  write(running, true);
  write(runtime, Number(0));
  write(over, false);
}

void GAction::Pause() {
  write(running, false);
}

void GAction::Resume() {
  write(running, true);
}

void GAction::Stop() {
  write(running, false);
  host::set_attr(this, "time"_name, host::integer(0).get());
}

void GAction::update(PyObject* delay) {
  if (is_true(running) && is_false(over)) write(runtime, number(runtime) + host::number(delay));
}

bool GAction::is_playing() const {
  return is_set(targetNode) && is_true(running) && is_false(over);
}

void GAction::base_run() {
  if (is_original(message::Run, &host::native<&GAction::Run>)) return Run();
  host::call_method(base_class(), "Run"_name, static_cast<PyObject*>(this));
}

void GAction::base_update(PyObject* delay) {
  if (is_original(message::update, &host::native<&GAction::update>)) return update(delay);
  host::call_method(base_class(), "update"_name, static_cast<PyObject*>(this), delay);
}

void register_action(PyObject* module) {
  host::ClassBuilder<GAction> builder("GAction", nullptr);
  builder
      .attribute("running", &GAction::running,
                 "Whether the action was started and is not paused. It stays true at the end.")
      .attribute("targetNode", &GAction::targetNode, "The node that the action works on, or None.")
      .attribute("runtime", &GAction::runtime, "Seconds since the last Run.")
      .attribute("over", &GAction::over, "Whether the action has finished.")
      .constructor<&GAction::construct>(
          {},
          "A timed job on a node; the base of all actions.\n\n"
          "Give actions to a node's RunAction, which plays them one after another.")
      .accessors<&GAction::targetNode>(nullptr, "SetTarget", "targetNode")
      .accessors<&GAction::running>("IsRunning", nullptr, nullptr)
      .accessors<&GAction::runtime>("GetRunTime", nullptr, nullptr)
      .method<&GAction::Run>("Run", "Start the action, or start it again from the beginning.")
      .method<&GAction::Pause>("Pause", "Hold the action where it is.")
      .method<&GAction::Resume>("Resume", "Go on after Pause or Stop.")
      .method<&GAction::Stop>("Stop",
                              "Hold the action where it is and set an attribute `time` to 0.\n\n"
                              "`runtime` is kept until the next Run.")
      .accessors<&GAction::over>("IsOver", nullptr, nullptr)
      .method<&GAction::update>(
          "update", {"delay"},
          "Add `delay` seconds to the run time, unless the action is paused or over.");
  host::add_object_protocol(builder);
  builder.finish(module);
}

}  // namespace tessora
