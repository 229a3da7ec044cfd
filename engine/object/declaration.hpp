// Declaring a class: one row per attribute, one entry per method. From these come the type, its
// descriptors, construction, copying, help() and the stubs.
//
//   host::Declaration<Lamp, GameNode> lamp(module, "Lamp", "A light.");
//   lamp.constructor("(parent: GameNode | None, power: float = 40)");
//   lamp.sets<&Lamp::NodeType>("Lamp");
//   lamp.attribute<&Lamp::power>("power: float", host::given("power"), "Power in watts.")
//       .pair("GetPower", "SetPower", "power")
//       .copied();
//   lamp.method<&Lamp::Switch>("Switch(on: bool) -> None", "Switch the light.");
//   lamp.finish();
#pragma once

#include <deque>

#include "engine/object/attribute_texts.hpp"
#include "engine/object/bindings.hpp"
#include "engine/object/dispatch.hpp"

namespace tessora::host {

// The value that an attribute starts with.
class Default {
 public:
  // NOLINTBEGIN(google-explicit-constructor): a row shows the value itself
  Default(std::nullptr_t) : step_{Step::Kind::kShared} { step_.value = Py_None; }
  template <std::same_as<bool> Flag>
  Default(Flag value) : step_{Step::Kind::kShared} {
    step_.value = value ? Py_True : Py_False;
  }
  Default(int value) : step_{Step::Kind::kShared} { step_.value = integer(value).release(); }
  Default(double value) : step_{Step::Kind::kShared} { step_.value = real(value).release(); }
  Default(const char* text) : step_{Step::Kind::kShared} { step_.value = intern(text).get(); }
  Default(Step step) : step_(step) {}
  // NOLINTEND(google-explicit-constructor)

  [[nodiscard]] const Step& step() const noexcept { return step_; }
  // The name of the constructor's argument that it is, or null.
  const char* argument = nullptr;
  // Set by a step of the constructor, or by nobody at first.
  bool is_none_at_all = false;
  // A step sets another one: the row's own text tells of it.
  bool is_replaced = false;

 private:
  Step step_;
};

// The constructor's argument of that name.
inline Default given(const char* name) {
  Default value(Step{Step::Kind::kArgument});
  value.argument = name;
  return value;
}
// No value: a step sets it.
inline Default unset() {
  Default value(nullptr);
  value.is_none_at_all = true;
  return value;
}
// What is there until a step sets another value.
inline Default replaced(Default value) {
  value.is_replaced = true;
  return value;
}
// A new object for every instance.
template <Ref (*Make)()>
Default made() {
  Step step{Step::Kind::kMade};
  step.make = Make;
  return step;
}
// Made when somebody first looks at it; for a LazySlot.
inline Default lazily(LazyDefault::Make make, std::uint32_t detail = 0) {
  Step step{Step::Kind::kShared};
  step.value = new_lazy_default(make, detail).release();
  return step;
}
// What stands for an empty dictionary until somebody looks at it.
Value lazy_dict();
// An empty dictionary, a colour, made when somebody first looks at it.
Default empty_dict();
Default color(int red, int green, int blue, int alpha = 255);
inline Default zero_vector() {
  return lazily(&make_vector);
}
// A value of the engine's module or of pygame, as it is when the object is made.
Default module_value(const char* name);
Default library_value(const char* name);

// The very object that another attribute holds.
template <auto Member>
Default same_as() {
  Step step{Step::Kind::kSame};
  step.read = [](Object& self) -> Ref { return self.read(slot_of<Member>(self)); };
  return step;
}

inline Ref new_list() {
  return list();
}

// How CopyTo hands an attribute over.
enum class Copied : std::uint8_t { kShared, kCopied, kTable };

void copy_shared(Object& from, Value to, const Attribute& attribute, Copied how);
// Calls the setter with the components of a colour.
void copy_color(Value color, Value to, Value setter, bool with_alpha);
Ref new_color(Value red, Value green, Value blue, Value alpha);

enum class Alpha : std::uint8_t { kOpaque, kGiven };

class DeclarationBase {
 public:
  DeclarationBase(PyObject* module, ClassInfo& info, const ClassInfo* base, const char* name,
                  std::string doc, Py_ssize_t size);

  // Keeps a text that was put together for as long as the class lives.
  [[nodiscard]] const char* keep(std::string text);
  [[nodiscard]] const Attribute& attribute_at(Py_ssize_t offset) const;
  void add_method(const char* text, const char* doc, Method& record, Native native,
                  PyCFunction function, int flags);
  void add_copy(CopyRow row);

 protected:
  const Attribute& add_attribute(const char* row, Py_ssize_t offset, bool lazy,
                                 const Default& value, const char* doc);
  void add_step(const Default& value, Py_ssize_t offset);
  void add_code(Step::Code code);
  void add_hidden(Py_ssize_t offset);
  void add_property(const char* row, getter get, setter set, const char* doc);
  void set_constructor(const char* signature);
  void set_order(std::initializer_list<const char*> names) { order_.assign(names); }
  void skip_base_constructor();
  void add_slot(int slot, void* function) { slots_.push_back({slot, function}); }
  void copy_rest();
  void finish();

  ClassInfo& info_;

 private:
  struct Tables;  // what Python keeps pointers to
  void put_in_order();

  PyObject* module_;
  Py_ssize_t size_;
  Tables* tables_;
  std::vector<PyType_Slot> slots_;
  std::vector<const char*> order_;
};

template <class Function>
void* as_slot(Function* function) {
  return reinterpret_cast<void*>(function);
}

// Declares getters and setters of these members.
template <auto... Members>
void declare_getter(DeclarationBase& declaration, const char* name, const std::string& type,
                    const std::string& about) {
  constexpr Native kGetter = &native_getter<Members...>;
  declaration.add_method(declaration.keep(std::string(name) + "() -> " + type),
                         declaration.keep("Return " + about), method_record<kGetter>, kGetter,
                         &call_getter<kGetter>, METH_NOARGS);
}
template <Native Code>
void declare_native(DeclarationBase& declaration, const char* signature, const char* doc) {
  declaration.add_method(
      signature, doc, method_record<Code>, Code,
      reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(&call_with_arguments<Code>)),
      METH_FASTCALL | METH_KEYWORDS);
}

template <auto Member, bool WithAlpha>
Ref set_color(Object& self, PyObject* const* args) {
  Value alpha = WithAlpha ? Value(args[3]) : 255_const;
  self.write(slot_of<Member>(self), new_color(args[0], args[1], args[2], alpha));
  return none();
}

template <auto Member>
class Row {
 public:
  Row(DeclarationBase& declaration, const Attribute& attribute)
      : declaration_(declaration), attribute_(attribute) {}

  Row& getter(const char* name) {
    declare_getter<Member>(declaration_, name, attribute_.type, about());
    return *this;
  }
  Row& setter(const char* name, const char* parameter) {
    declare_native<&native_setter<Member>>(
        declaration_,
        keep(std::string(name) + "(" + parameter + ": " + attribute_.type + ") -> None"),
        keep("Set " + about()));
    return *this;
  }
  Row& pair(const char* getter_name, const char* setter_name, const char* parameter) {
    return getter(getter_name).setter(setter_name, parameter);
  }
  // A setter of a colour by its components.
  template <Alpha Given>
  Row& color_setter(const char* name) {
    constexpr bool kWithAlpha = Given == Alpha::kGiven;
    const char* alpha = kWithAlpha ? ", a: int = 255) -> None" : ") -> None";
    declare_native<&set_color<Member, kWithAlpha>>(
        declaration_, keep(std::string(name) + "(r: int, g: int, b: int" + alpha),
        keep("Set " + about() +
             (kWithAlpha ? "\n\nComponents" : "\n\nThe colour is opaque. Components") +
             " are from 0 to 255; others raise ValueError."));
    return *this;
  }

  // CopyTo hands the value over as the attribute itself.
  template <Copied How = Copied::kShared>
  Row& copied() {
    constexpr int kAfterSetters = 100;
    return copies(
        [](Object& from, Value to, const CopyRow& row) {
          const auto& attribute = *class_info<SlotOwner<Member>>.find(row.name);
          copy_shared(from, to, attribute, How);
        },
        attribute_.name, kAfterSetters);
  }
  // CopyTo hands it to this setter.
  Row& copied_by(const char* setter_name, int rank = 0) {
    return copies(
        [](Object& from, Value to, const CopyRow& row) {
          auto& slot = slot_of<Member>(from);
          if (!from.is_unset(slot)) to.call(row.name, from.read(slot));
        },
        intern(setter_name).get(), rank);
  }
  template <Alpha Given>
  Row& color_copied_by(const char* setter_name, int rank = 0) {
    return copies(
        [](Object& from, Value to, const CopyRow& row) {
          auto& slot = slot_of<Member>(from);
          if (from.is_unset(slot)) return;
          Ref color = from.read(slot);
          copy_color(color, to, row.name, Given == Alpha::kGiven);
        },
        intern(setter_name).get(), rank);
  }
  Row& copies(CopyRow::Copy copy, const char* setter_name, int rank) {
    return copies(copy, intern(setter_name).get(), rank);
  }
  Row& copies(CopyRow::Copy copy, PyObject* name, int rank) {
    declaration_.add_copy({copy, name, rank, attribute_.name});
    return *this;
  }

  [[nodiscard]] std::string about() const { return told_of(attribute_); }
  [[nodiscard]] const char* keep(std::string text) { return declaration_.keep(std::move(text)); }
  [[nodiscard]] DeclarationBase& declaration() noexcept { return declaration_; }

 private:
  DeclarationBase& declaration_;
  const Attribute& attribute_;
};

// Two attributes with one getter and one setter.
template <auto First, auto Second>
class PairRow {
 public:
  explicit PairRow(DeclarationBase& declaration) : declaration_(declaration) {}
  PairRow& copied_by(const char* setter_name, int rank = 0) {
    constexpr auto kCopy = [](Object& from, Value to, const CopyRow& row) {
      auto& first = slot_of<First>(from);
      auto& second = slot_of<Second>(from);
      if (from.is_unset(first) || from.is_unset(second)) return;
      to.call(row.name, from.read(first), from.read(second));
    };
    declaration_.add_copy({kCopy, intern(setter_name).get(), rank});
    return *this;
  }

 private:
  DeclarationBase& declaration_;
};

template <class Class, class Base = Object>
class Declaration : public DeclarationBase {
 public:
  Declaration(PyObject* module, const char* name, std::string doc)
      : DeclarationBase(module, class_info<Class>, base_info(), name, std::move(doc),
                        static_cast<Py_ssize_t>(sizeof(Class))) {}

  // "(parent: GameNode | None, x: float = 0)". The base's constructor gets as many of the arguments
  // as it has parameters.
  Declaration& constructor(const char* signature) {
    set_constructor(signature);
    return *this;
  }
  // The base's constructor is not run: its attributes are unset at first.
  Declaration& constructor_alone(const char* signature) {
    skip_base_constructor();
    return constructor(signature);
  }

  template <auto Member>
  Row<Member> attribute(const char* row, const Default& value, const char* doc) {
    constexpr bool kLazy = std::is_same_v<typename MemberSlot<decltype(Member)>::Type, LazySlot>;
    return {*this, add_attribute(row, offset<Member>(), kLazy, value, doc)};
  }
  // Another value for an attribute of a base, set at this place.
  template <auto... Members>
  Declaration& sets(const Default& value) {
    (add_step(value, offset<Members>()), ...);
    return *this;
  }
  // What construction does at this place, beside setting values; gets the constructor's arguments.
  template <auto Code>
  Declaration& step() {
    add_code([](Object& self, PyObject* const* args) { native<Code>(self, args); });
    return *this;
  }
  // A reference that scripts do not see, null until set.
  template <auto Member>
  Declaration& hidden() {
    add_hidden(offset<Member>());
    return *this;
  }

  // CopyTo hands over the other attributes of the class as themselves, after what setters take:
  // lists, colours and dictionaries with their lists are copied, what else there is is shared.
  Declaration& copies_rest() {
    copy_rest();
    return *this;
  }

  template <auto Code>
  Declaration& method(const char* signature, const char* doc) {
    if constexpr (Traits<Code>::kArity == 0) {
      add_method(signature, doc, method_record<&native<Code>>, &native<Code>,
                 &call_without_arguments<&native<Code>>, METH_NOARGS);
    } else {
      declare_native<&native<Code>>(*this, signature, doc);
    }
    return *this;
  }

  template <auto First, auto Second>
  PairRow<First, Second> pair(const char* getter_name, const char* setter_name,
                              const char* parameters) {
    const Attribute& first = attribute_at(offset<First>());
    const Attribute& second = attribute_at(offset<Second>());
    const std::string about = told_of(first, second);
    declare_getter<First, Second>(
        *this, getter_name, std::string("tuple[") + first.type + ", " + second.type + "]", about);
    declare_native<&native_setter<First, Second>>(
        *this, keep(std::string(setter_name) + parameters + " -> None"), keep("Set " + about));
    return PairRow<First, Second>(*this);
  }

  // A property over two messages, which a script may override.
  template <const Message* Get, const Message* Set>
  Declaration& property(const char* row, const char* doc) {
    add_property(row, &get_property<Get>, &set_property<Set>, doc);
    return *this;
  }

  // The order in which the constructors set the attributes, where it is not the base's first.
  Declaration& order(std::initializer_list<const char*> names) {
    set_order(names);
    return *this;
  }

  void finish() {
    info_.initialise = &initialise_class<Class>;
    add_slot(Py_tp_init, as_slot(&initialise_class<Class>));
    add_slot(Py_tp_new, as_slot(&make_object));
    add_slot(Py_tp_dealloc, as_slot(&deallocate_class<Class>));
    add_slot(Py_tp_traverse, as_slot(&traverse_class<Class>));
    add_slot(Py_tp_clear, as_slot(&clear_class<Class>));
    DeclarationBase::finish();
  }

 private:
  static const ClassInfo* base_info() {
    if constexpr (std::is_same_v<Base, Object>) {
      return nullptr;
    } else {
      return &class_info<Base>;
    }
  }

  template <auto Member>
  static Py_ssize_t offset() {
    alignas(Class) static char storage[sizeof(Class)];
    auto* object = reinterpret_cast<Class*>(storage);
    return reinterpret_cast<char*>(&(object->*Member)) - storage;
  }

  template <const Message* Get>
  static PyObject* get_property(PyObject* self, void*) {
    return guarded<PyObject*>(nullptr, [&] { return (*Get)(self).release(); });
  }
  template <const Message* Set>
  static int set_property(PyObject* self, PyObject* value, void*) {
    return guarded(-1, [&] {
      if (value == nullptr) raise(PyExc_AttributeError, "the attribute cannot be deleted");
      (*Set)(self, value);
      return 0;
    });
  }
};

}  // namespace tessora::host
