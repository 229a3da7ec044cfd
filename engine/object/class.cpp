#include "engine/object/class.hpp"

#include <algorithm>
#include <unordered_map>

#include "engine/host/modules.hpp"
#include "engine/object/bindings.hpp"
#include "engine/object/internal_type.hpp"

namespace tessora::host {

const Attribute* ClassInfo::find(Value wanted) const {
  for (const Attribute& attribute : attributes) {
    if (attribute.name == wanted.get()) return &attribute;
  }
  if (wanted.is_plain_text() && PyUnicode_CHECK_INTERNED(wanted.get()) != 0) return nullptr;
  for (const Attribute& attribute : attributes) {
    if (wanted.equals(attribute.name)) return &attribute;
  }
  return nullptr;
}

const Attribute* ClassInfo::at(Py_ssize_t offset) const {
  for (const Attribute& attribute : attributes) {
    if (attribute.offset == offset) return &attribute;
  }
  return nullptr;
}

bool ClassInfo::derives_from(const ClassInfo& other) const noexcept {
  const ClassInfo* each = this;
  while (each != nullptr && each != &other) each = each->base;
  return each != nullptr;
}

Ref Attribute::value(PyObject* object) const {
  if (lazy && of(object) != nullptr && Py_TYPE(of(object)) == lazy_default_type) {
    Object::materialise(static_cast<LazySlot&>(slot(object)));
  }
  return Value(of(object));
}

namespace {

void run_base(Object& self, const ClassInfo& base, PyObject* const* args) {
  if (base.type->tp_init == base.initialise) return construct(self, base, args);
  // A script has put another constructor in its place.
  Ref given = take(PyTuple_New(static_cast<Py_ssize_t>(base.constructor.arity())));
  for (std::size_t index = 0; index < base.constructor.arity(); ++index) {
    PyTuple_SET_ITEM(given.get(), static_cast<Py_ssize_t>(index),
                     Ref(Value(args[index])).release());
  }
  check(in_script([&] { return base.type->tp_init(&self, given.get(), nullptr); }));
}

void run_step(Object& self, const Step& step, PyObject* const* args) {
  if (step.kind == Step::Kind::kCode) return step.code(self, args);
  auto& slot = *reinterpret_cast<Slot*>(reinterpret_cast<char*>(&self) + step.offset);
  switch (step.kind) {
    case Step::Kind::kShared:
      return self.write(slot, Value(step.value));
    case Step::Kind::kMade:
      return self.write(slot, step.make());
    case Step::Kind::kArgument:
      return self.write(slot, Value(args[step.argument]));
    case Step::Kind::kSame:
      return self.write(slot, step.read(self));
    case Step::Kind::kModuleValue:
      return self.write(slot, engine_value(step.value));
    default:
      return self.write(slot, modules::pygame[step.value]);
  }
}

}  // namespace

void construct(Object& self, const ClassInfo& info, PyObject* const* args) {
  if (info.base != nullptr && info.constructs_base) run_base(self, *info.base, args);
  for (const Step& step : info.steps) run_step(self, step, args);
}

void copy_rows(Object& from, Value to, const ClassInfo& info) {
  for (const CopyRow& row : info.copies) row.copy(from, to, row);
}

int traverse(const ClassInfo& info, PyObject* self, visitproc visit, void* arg) {
#if PY_VERSION_HEX >= 0x03090000
  Py_VISIT(Py_TYPE(self));
#endif
  Py_VISIT(static_cast<Object*>(self)->own_attributes);
  for (const Attribute& attribute : info.attributes) Py_VISIT(attribute.of(self));
  for (const Attribute& attribute : info.hidden) Py_VISIT(attribute.of(self));
  return 0;
}

void clear(const ClassInfo& info, PyObject* self) {
  Py_CLEAR(static_cast<Object*>(self)->own_attributes);
  clear_attributes(info, self);
}

void clear_attributes(const ClassInfo& info, PyObject* self) {
  script_ran();
  for (const Attribute& attribute : info.attributes) Py_CLEAR(attribute.of(self));
  for (const Attribute& attribute : info.hidden) Py_CLEAR(attribute.of(self));
  script_ran();
}

bool finalise(PyObject* self) {
  if (Py_TYPE(self)->tp_finalize == nullptr) return true;
  script_ran();
  const bool dies = PyObject_CallFinalizerFromDealloc(self) == 0;
  script_ran();
  return dies;
}

PyObject* make_object(PyTypeObject* type, PyObject*, PyObject*) {
  return guarded<PyObject*>(nullptr, [&] {
    Ref self = take(type->tp_alloc(type, 0));
    static_cast<Object*>(self.get())->properties_override = type_record(type).properties_override;
    return self.release();
  });
}

int construct_object(const ClassInfo& info, PyObject* self, PyObject* args, PyObject* kwargs) {
  return guarded(-1, [&] {
    script_ran();
    // Some hosts hand over the very dictionary that a script unpacks, which it may change
    // meanwhile.
    Ref own_kwargs;
    if (kwargs != nullptr) own_kwargs = take(PyDict_Copy(kwargs));
    Ref own_args = Value(args);
    Bound bound(info.constructor.arity());
    info.constructor.bind(args, own_kwargs.get(), bound);
    construct(entered(self), info, bound.data());
    return 0;
  });
}

namespace {

void deallocate_lazy_default(PyObject* self) {
  PyTypeObject* type = Py_TYPE(self);
  type->tp_free(self);
  Py_DECREF(type);
}

}  // namespace

Ref new_lazy_default(LazyDefault::Make make, std::uint32_t detail, double x, double y) {
  if (lazy_default_type == nullptr) {
    static PyType_Slot slots[] = {
        {Py_tp_dealloc, reinterpret_cast<void*>(&deallocate_lazy_default)},
        {Py_tp_new, reinterpret_cast<void*>(&refuse_instances)},
        {0, nullptr}};
    static PyType_Spec blueprint = {"Tessora._LazyDefault", static_cast<int>(sizeof(LazyDefault)),
                                    0, Py_TPFLAGS_DEFAULT, slots};
    lazy_default_type =
        reinterpret_cast<PyTypeObject*>(take(PyType_FromSpec(&blueprint)).release());
  }
  Ref made = take(lazy_default_type->tp_alloc(lazy_default_type, 0));
  auto& standing = *static_cast<LazyDefault*>(made.get());
  standing.make = make;
  standing.detail = detail;
  standing.x = x;
  standing.y = y;
  return made;
}

Ref make_color(const LazyDefault& standing) {
  constexpr std::uint32_t kByte = 255;
  auto part = [&](unsigned shift) { return static_cast<int>(standing.detail >> shift & kByte); };
  Ref type = modules::pygame["Color"_name];
  return type(part(24), part(16), part(8), part(0));
}

Ref make_vector(const LazyDefault& standing) {
  Ref type = modules::pygame["math"_name].attr("Vector2"_name);
  return type(standing.x, standing.y);
}

void Object::write_pending(LazySlot& slot, LazyDefault::Make make, std::uint32_t detail, double x,
                           double y) {
  // What only this slot refers to nobody has seen.
  if (pending(slot, make) != nullptr && Py_REFCNT(slot.object_) == 1) {
    auto& standing = *static_cast<LazyDefault*>(slot.object_);
    standing.detail = detail;
    standing.x = x;
    standing.y = y;
    ++clocks.state;
    return;
  }
  write(slot, new_lazy_default(make, detail, x, y));
}

void Object::materialise(LazySlot& slot) {
  Ref holder = Value(slot.object_);
  const auto& standing = *static_cast<LazyDefault*>(holder.get());
  Ref value = standing.make(standing);
  // Making the value may have run a script that set the attribute.
  if (slot.object_ != holder.get()) return;
  slot.object_ = value.release();
  Py_DECREF(holder.get());
}

namespace {

const Attribute* attribute_at(const Object& object, const Slot& slot) {
  const auto offset = reinterpret_cast<const char*>(&slot) - reinterpret_cast<const char*>(&object);
  return type_record(Py_TYPE(&object)).engine_class->at(offset);
}

}  // namespace

bool Object::is_covered(const Slot& slot) const noexcept {
  const Attribute* attribute = attribute_at(*this, slot);
  if (attribute == nullptr) return false;
  PyTypeObject* type = Py_TYPE(this);
  if (type_record(type).hooked) return true;
  PyObject* found = _PyType_Lookup(type, attribute->name);
  return found != nullptr && Py_TYPE(found) != &PyMemberDescr_Type &&
         Py_TYPE(found) != &PyGetSetDescr_Type;
}

Ref Object::read_slow(const Slot& slot) const {
  const Attribute* attribute = attribute_at(*this, slot);
  if (attribute == nullptr) return Value(slot.object_);
  // Python's look-up also finds a property, and what it says of an unset attribute.
  return Value(*this).attr(attribute->name);
}

void Object::write_slow(Slot& slot, Value value) {
  const Attribute* attribute = attribute_at(*this, slot);
  if (attribute == nullptr) {
    Ref old = Ref::steal(std::exchange(slot.object_, Ref(value).release()));
    return;
  }
  // A script's property gets the value itself.
  const auto* standing =
      value.type() == lazy_default_type ? static_cast<const LazyDefault*>(value.get()) : nullptr;
  Ref given = standing == nullptr ? Ref(value) : standing->make(*standing);
  Value(*this).set_attr(attribute->name, given);
}

bool Object::carries_slow(Value name) const {
  // A key's comparison may replace the dictionary.
  Ref own = Value(own_attributes);
  if (PyDict_GetItemWithError(own.get(), name.get()) != nullptr) return true;
  if (PyErr_Occurred() != nullptr) throw HostError();
  return false;
}

}  // namespace tessora::host
