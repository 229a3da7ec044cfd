// The actions that scripts create: timed changes of one property of a node.
#pragma once

#include "engine/actions/action.hpp"
#include "engine/actions/vectors.hpp"

namespace tessora {

// What the actions below have in common; scripts see GAction as their base.
struct TimedAction : GAction {
  host::Slot duration;

 protected:
  void construct_timed(PyObject* seconds);

  // The body of `update`: `finish` applies the final value, `change` the one at a time in [0, 1).
  template <class Finish, class Change>
  void advance(PyObject* delay, Finish finish, Change change) {
    if (!is_playing()) return;
    base_update(delay);
    host::Number time = normalised_time();
    if (time >= host::Number(1.0)) {
      finish();
      write(over, true);
    } else {
      change(time);
    }
  }

 private:
  [[nodiscard]] host::Number normalised_time() const;
};

struct CallBackAction : TimedAction {
  host::Slot callbackFunc, callbackParams;

  void construct(PyObject* seconds, PyObject* function, PyObject* params);
  void update(PyObject* delay);
};

// Changes a pair of numbers.
struct VectorAction : TimedAction {
  host::Slot source, destination;

 protected:
  void construct_vectors(PyObject* seconds, int start, PyObject* x, PyObject* y);
  void start_at(const host::Ref& x, const host::Ref& y);

  // The body of `update`, for an action that goes to its destination and for one that goes by it.
  template <class Apply>
  void advance_to(PyObject* delay, Apply apply) {
    advance(
        delay, [&] { apply(components(read(destination).get())); },
        [&](const host::Number& time) {
          apply(lerp(read(source).get(), read(destination).get(), time));
        });
  }
  template <class Apply>
  void advance_by(PyObject* delay, Apply apply) {
    advance(
        delay, [&] { apply(from_source(components(read(destination).get()))); },
        [&](const host::Number& time) {
          apply(from_source(lerp_from_origin(read(destination).get(), time)));
        });
  }

 private:
  [[nodiscard]] Point from_source(const Point& way) const;
};

struct MoveAction : VectorAction {
  void Run();

 protected:
  void set_position(const Point& position);
};

struct MoveToAction : MoveAction {
  void construct(PyObject* seconds, PyObject* x, PyObject* y);
  void update(PyObject* delay);
};

struct MoveByAction : MoveAction {
  void construct(PyObject* seconds, PyObject* x, PyObject* y);
  void update(PyObject* delay);
};

struct ScaleAction : VectorAction {
  void Run();

 protected:
  void set_scale(const Point& scale);
};

struct ScaleToAction : ScaleAction {
  void construct(PyObject* seconds, PyObject* sx, PyObject* sy);
  void update(PyObject* delay);
};

struct ScaleByAction : ScaleAction {
  void construct(PyObject* seconds, PyObject* sx, PyObject* sy);
  void update(PyObject* delay);
};

struct RotateAction : TimedAction {
  host::Slot srcAngle, dstAngle;

  void Run();

 protected:
  void construct_angles(PyObject* seconds, PyObject* angle);
  void set_angle(const host::Number& angle);
};

struct RotateToAction : RotateAction {
  void construct(PyObject* seconds, PyObject* angle);
  void update(PyObject* delay);
};

struct RotateByAction : RotateAction {
  void construct(PyObject* seconds, PyObject* angle);
  void update(PyObject* delay);
};

struct BlinkAction : TimedAction {
  host::Slot blinkcount, delaytime, blinkindex;

  void construct(PyObject* seconds, PyObject* count);
  void Run();
  void update(PyObject* delay);
};

void register_callback_action(PyObject* module);
void register_move_actions(PyObject* module);
void register_scale_actions(PyObject* module);
void register_rotate_actions(PyObject* module);
void register_blink_action(PyObject* module);
// All of them, in this order.
void register_concrete_actions(PyObject* module);

}  // namespace tessora
