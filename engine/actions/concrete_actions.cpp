// What the concrete actions share.
#include "engine/actions/concrete_actions.hpp"

namespace tessora {

using host::number;
using host::Number;
using host::Ref;

void TimedAction::construct_timed(PyObject* seconds) {
  GAction::construct();
  write(duration, seconds);
}

Number TimedAction::normalised_time() const {
  if (number(duration) > Number(0.0)) return number(runtime) / number(duration);
  return 1.0;
}

void VectorAction::construct_vectors(PyObject* seconds, int start, PyObject* x, PyObject* y) {
  construct_timed(seconds);
  Ref value = host::integer(start);
  write(source, make_vector(value.get(), value.get()));
  write(destination, make_vector(x, y));
}

void VectorAction::start_at(const Ref& x, const Ref& y) {
  write(source, make_vector(x.get(), y.get()));
  base_run();
}

Point VectorAction::from_source(const Point& way) const {
  Point start = components(read(source).get());
  return {start.x + way.x, start.y + way.y};
}

void register_concrete_actions(PyObject* module) {
  register_callback_action(module);
  register_move_actions(module);
  register_scale_actions(module);
  register_rotate_actions(module);
  register_blink_action(module);
}

}  // namespace tessora
