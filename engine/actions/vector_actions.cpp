// Actions that change a pair of numbers: a node's position or scale.
#include "engine/actions/concrete_actions.hpp"
#include "engine/actions/vectors.hpp"
#include "engine/core/scene_node.hpp"

namespace tessora {

namespace {

struct Quality {
  const host::Message& first;
  const host::Message& second;
  void (*set)(Value node, const Number& first, const Number& second);
  int plain_value;  // of both numbers, before Run

  const char* constructor;
  const char* duration;
  const char* source;
  const char* source_is;
  const char* destination;
  const char* run_does;
  const char* update_does;
};

constexpr Quality kPosition{
    message::GetWX,
    message::GetWY,
    &set_position,
    0,
    "(duration: float, x: float, y: float)",
    "Seconds that the movement takes.",
    "srcPostion: pygame.math.Vector2",
    "pygame.math.Vector2: the node's world position when the action was started.",
    "dstPostion: pygame.math.Vector2",
    "Start from the node's world position (GetWX, GetWY); without a target nothing happens.",
    "Add `delay` seconds and move the node with SetXY.\n\n"
    "Raises ValueError for a time before the start."};

constexpr Quality kScale{
    message::GetSX,
    message::GetSY,
    &set_scale,
    1,
    "(duration: float, sx: float, sy: float)",
    "Seconds that the change takes.",
    "srcScale: pygame.math.Vector2",
    "pygame.math.Vector2: the node's scale when the action was started.",
    "dstScale: pygame.math.Vector2",
    "Start from the node's scale (GetSX, GetSY); without a target nothing happens.",
    "Add `delay` seconds and scale the node with SetSXY.\n\n"
    "Raises ValueError for a time before the start."};

template <const Quality& Changed, Course Way>
struct VectorAction : TimedAction {
  Slot source, destination;

  void set_vectors(Value, Value x, Value y) {
    Ref start = host::integer(Way == Course::kTo ? Changed.plain_value : 0);
    write(source, make_vector(start, start));
    write(destination, make_vector(x, y));
  }

  void Run() {
    if (!is_set(targetNode)) return;
    Ref first = Changed.first(read(targetNode));
    Ref second = Changed.second(read(targetNode));
    write(source, make_vector(first, second));
    message::Run.base<&GAction::Run>(*this);
  }

  void update(Value delay) {
    advance(delay, [&](const Number& time, bool ends) {
      Point point = ends ? components(read(destination)) : between(time);
      if (Way == Course::kBy) {
        Point start = components(read(source));
        point = {start.x + point.x, start.y + point.y};
      }
      Changed.set(read(targetNode), point.x, point.y);
    });
  }

 private:
  [[nodiscard]] Point between(const Number& time) const {
    Ref start;
    if (Way == Course::kTo) start = read(source);
    return lerp(start, read(destination), time);
  }
};

template <const Quality& Changed, Course Way>
void declare(PyObject* module, const char* name, const char* doc, const char* destination_is) {
  using Action = VectorAction<Changed, Way>;
  host::Declaration<Action, GAction> action(module, name, doc);
  action.constructor(Changed.constructor);
  declare_duration(action, Changed.duration);
  action.template attribute<&Action::source>(Changed.source, host::unset(), Changed.source_is);
  action.template attribute<&Action::destination>(Changed.destination, host::unset(),
                                                  destination_is);
  action.template step<&Action::set_vectors>();
  action.template method<&Action::Run>("Run() -> None", Changed.run_does);
  action.template method<&Action::update>("update(delay: float) -> None", Changed.update_does);
  action.finish();
}

}  // namespace

void register_vector_actions(PyObject* module) {
  declare<kPosition, Course::kTo>(
      module, "MoveToAction",
      "Moves a node to the position (`x`, `y`) in pixels, in `duration` seconds.\n\n"
      "The way begins at the node's world position but is set as its local one: the two agree for "
      "a node without an anchor whose parent, if any, is at the origin.\n\n"
      ">>> node.RunAction(Tessora.MoveToAction(2, 300, 50))",
      "pygame.math.Vector2: where the movement ends.");
  declare<kPosition, Course::kBy>(module, "MoveByAction",
                                  "Moves a node by (`x`, `y`) pixels in `duration` seconds.\n\n"
                                  "Started again, it moves on from where the node is by then.\n\n"
                                  ">>> node.RunAction(Tessora.MoveByAction(2, 100, 0))",
                                  "pygame.math.Vector2: the whole way in pixels.");
  declare<kScale, Course::kTo>(
      module, "ScaleToAction",
      "Scales a node to the factors (`sx`, `sy`) in `duration` seconds.\n\n"
      ">>> node.RunAction(Tessora.ScaleToAction(1, 2.0, 2.0))",
      "pygame.math.Vector2: the scale at the end.");
  declare<kScale, Course::kBy>(
      module, "ScaleByAction",
      "Adds (`sx`, `sy`) to a node's scale factors in the course of `duration` seconds.\n\n"
      ">>> node.RunAction(Tessora.ScaleByAction(1, 0.5, 0.5))",
      "pygame.math.Vector2: what is added to the scale.");
}

}  // namespace tessora
