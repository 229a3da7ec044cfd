#include "engine/object/declaration.hpp"

#include <algorithm>
#include <cstring>
#include <unordered_map>

#include "engine/host/items.hpp"
#include "engine/object/instance_dict.hpp"
#include "engine/object/module_rows.hpp"

namespace tessora::host {

namespace {

std::unordered_map<PyTypeObject*, const ClassInfo*> engine_classes;
std::unordered_map<PyObject*, EngineMethod> engine_methods;
std::vector<const ClassInfo*> declared_classes;

Ref make_dict(const LazyDefault&) {
  return dictionary();
}

}  // namespace

const std::vector<const ClassInfo*>& all_classes() {
  return declared_classes;
}

const ClassInfo* engine_class_of(PyTypeObject* type) {
  for (; type != nullptr; type = type->tp_base) {
    auto found = engine_classes.find(type);
    if (found != engine_classes.end()) return found->second;
  }
  return nullptr;
}

const EngineMethod* engine_method(PyObject* descriptor) {
  auto found = engine_methods.find(descriptor);
  return found == engine_methods.end() ? nullptr : &found->second;
}

Value lazy_dict() {
  static PyObject* const shared = new_lazy_default(&make_dict, 0).release();
  return shared;
}

Default empty_dict() {
  Step step{Step::Kind::kShared};
  step.value = lazy_dict().get();
  return step;
}

Default color(int red, int green, int blue, int alpha) {
  std::uint32_t packed = 0;
  for (int part : {red, green, blue, alpha}) packed = packed << 8U | static_cast<unsigned>(part);
  return lazily(&make_color, packed);
}

Default module_value(const char* name) {
  Step step{Step::Kind::kModuleValue};
  step.value = intern(name).get();
  return step;
}

Default library_value(const char* name) {
  Step step{Step::Kind::kLibraryValue};
  step.value = intern(name).get();
  return step;
}

namespace {

Ref copy_of(Value value) {
  return import("copy", "copy"_name)(value);
}

// An entry of a table, whose lists a script may go on filling.
Ref copy_of_entry(Value entry) {
  Ref copy = copy_of(entry);
  if (!copy.is_plain_list()) return copy;
  for (Py_ssize_t index = 0; index < copy.length(); ++index) {
    Ref item = copy.item(index);
    if (item.is_list()) copy.set_item(integer(index), copy_of(item));
  }
  return copy;
}

// A dictionary of containers, down to these and the lists in them.
Ref copy_of_table(Value table) {
  Ref copy = copy_of(table);
  for (Ref key : items(copy)) {
    Ref entry = copy.item(key);
    copy.set_item(key, copy_of_entry(entry));
  }
  return copy;
}

}  // namespace

void copy_shared(Object& from, Value to, const Attribute& attribute, Copied how) {
  if (from.is_unset(attribute.slot(&from))) return;
  Ref value = Value(from).attr(attribute.name);
  if (how == Copied::kCopied) value = copy_of(value);
  if (how == Copied::kTable) value = copy_of_table(value);
  to.set_attr(attribute.name, value);
}

namespace {

void copy_as_it_is(Object& from, Value to, const CopyRow& row) {
  static auto* const color =
      reinterpret_cast<PyTypeObject*>(modules::pygame["Color"_name].release());
  Ref value = Value(from).find_attr(row.name);
  if (!value) return;
  if (value.is_dict()) {
    value = copy_of_table(value);
  } else if (value.is_list() || value.is_kind_of(color)) {
    value = copy_of(value);
  }
  to.set_attr(row.name, value);
}

}  // namespace

void copy_color(Value color, Value to, Value setter, bool with_alpha) {
  Ref red = color.attr("r"_name);
  Ref green = color.attr("g"_name);
  Ref blue = color.attr("b"_name);
  if (!with_alpha) {
    to.call(setter, red, green, blue);
    return;
  }
  Ref alpha = color.attr("a"_name);
  to.call(setter, red, green, blue, alpha);
}

Ref new_color(Value red, Value green, Value blue, Value alpha) {
  Ref type = modules::pygame["Color"_name];
  return type(red, green, blue, alpha);
}

struct DeclarationBase::Tables {
  std::deque<std::string> texts;
  std::deque<Attribute> lazy;
  std::vector<PyMemberDef> members;
  std::vector<PyMethodDef> methods;
  std::vector<PyGetSetDef> properties;
  std::vector<std::pair<const char*, const Method*>> records;
  Signature constructor{"()"};
};

DeclarationBase::DeclarationBase(PyObject* module, ClassInfo& info, const ClassInfo* base,
                                 const char* name, std::string doc, Py_ssize_t size)
    : info_(info), module_(module), size_(size), tables_(new Tables) {
  info_ = ClassInfo();
  info_.name = name;
  info_.doc = std::move(doc);
  info_.base = base;
  if (base == nullptr) return;
  info_.attributes = base->attributes;
  info_.descriptors = base->descriptors;
  info_.hidden = base->hidden;
}

const char* DeclarationBase::keep(std::string text) {
  return tables_->texts.emplace_back(std::move(text)).c_str();
}

const Attribute& DeclarationBase::attribute_at(Py_ssize_t offset) const {
  const Attribute* found = info_.at(offset);
  if (found == nullptr) raise(PyExc_SystemError, "%s: no attribute at this place", info_.name);
  return *found;
}

void DeclarationBase::set_constructor(const char* signature) {
  info_.signature = signature;
  const char* whole = keep(std::string(info_.name) + signature);
  tables_->constructor = Signature(whole);
  info_.constructor.declare(tables_->constructor, nullptr);
}

void DeclarationBase::skip_base_constructor() {
  info_.constructs_base = false;
}

namespace {

PyObject* get_lazy(PyObject* self, void* closure) {
  return guarded<PyObject*>(nullptr, [&] {
    const auto& attribute = *static_cast<const Attribute*>(closure);
    Ref value = attribute.value(self);
    if (!value) raise(PyExc_AttributeError, "%U", Value(attribute.name));
    return value.release();
  });
}

int set_lazy(PyObject* self, PyObject* value, void* closure) {
  return guarded(-1, [&] {
    const auto& attribute = *static_cast<const Attribute*>(closure);
    script_ran();
    Ref old = Ref::steal(std::exchange(attribute.of(self), Ref(Value(value)).release()));
    if (value == nullptr && !old) raise(PyExc_AttributeError, "%U", Value(attribute.name));
    return 0;
  });
}

}  // namespace

const Attribute& DeclarationBase::add_attribute(const char* row, Py_ssize_t offset, bool lazy,
                                                const Default& value, const char* doc) {
  const std::string_view text(row);
  const auto colon = text.find(':');
  const char* name = keep(std::string(text.substr(0, colon)));
  const char* type = row + colon + 2;
  Attribute attribute{intern(name).get(), name, type, doc, offset, lazy};
  add_relevant_name(attribute.name);
  info_.attributes.push_back(attribute);
  const bool tells_itself = value.is_none_at_all || value.is_replaced;
  const char* told = tells_itself ? doc : keep(with_default(doc, value.step()));
  info_.members.push_back({Member::Kind::kAttribute, row, told});
  if (lazy) {
    Attribute& kept = tables_->lazy.emplace_back(attribute);
    tables_->properties.push_back({name, &get_lazy, &set_lazy, told, &kept});
  } else {
    tables_->members.push_back({name, T_OBJECT_EX, offset, 0, told});
  }
  add_step(value, offset);
  return info_.attributes.back();
}

void DeclarationBase::add_step(const Default& value, Py_ssize_t offset) {
  if (value.is_none_at_all) return;
  Step step = value.step();
  step.offset = offset;
  if (value.argument != nullptr) {
    const auto& parameters = tables_->constructor.parameters;
    auto named = [&](const Parameter& each) { return each.name == value.argument; };
    auto found = std::ranges::find_if(parameters, named);
    if (found == parameters.end()) {
      raise(PyExc_SystemError, "%s: no argument %s", info_.name, value.argument);
    }
    step.argument = static_cast<std::size_t>(found - parameters.begin());
  }
  info_.steps.push_back(step);
}

void DeclarationBase::add_code(Step::Code code) {
  Step step{Step::Kind::kCode};
  step.code = code;
  info_.steps.push_back(step);
}

void DeclarationBase::add_hidden(Py_ssize_t offset) {
  info_.hidden.push_back({nullptr, nullptr, nullptr, nullptr, offset, false});
}

void DeclarationBase::add_copy(CopyRow row) {
  auto place = std::ranges::upper_bound(info_.copies, row.rank, {}, &CopyRow::rank);
  info_.copies.insert(place, row);
}

void DeclarationBase::copy_rest() {
  constexpr int kAfterSetters = 100;
  const std::size_t inherited = info_.base == nullptr ? 0 : info_.base->attributes.size();
  for (std::size_t index = inherited; index < info_.attributes.size(); ++index) {
    PyObject* name = info_.attributes[index].name;
    auto takes = [&](const CopyRow& row) { return row.attribute == name; };
    if (std::ranges::none_of(info_.copies, takes)) {
      add_copy({&copy_as_it_is, name, kAfterSetters, name});
    }
  }
}

void DeclarationBase::add_method(const char* text, const char* doc, Method& record, Native native,
                                 PyCFunction function, int flags) {
  const Signature signature(text);
  record.declare(signature, native);
  const char* name = keep(std::string(signature.name));
  tables_->records.emplace_back(name, &record);
  tables_->methods.push_back({name, function, flags, keep(signature.documentation(true, doc))});
  info_.members.push_back({Member::Kind::kMethod, text, doc});
}

void DeclarationBase::add_property(const char* row, getter get, setter set, const char* doc) {
  const std::string_view text(row);
  const char* name = keep(std::string(text.substr(0, text.find(':'))));
  tables_->properties.push_back({name, get, set, doc, nullptr});
  info_.members.push_back({Member::Kind::kProperty, row, doc});
}

// The rows and their descriptors follow the order of construction.
void DeclarationBase::put_in_order() {
  for (std::size_t place = 0; place < order_.size(); ++place) {
    for (std::size_t index = place; index < info_.attributes.size(); ++index) {
      if (std::strcmp(info_.attributes[index].chars, order_[place]) != 0) continue;
      std::swap(info_.attributes[place], info_.attributes[index]);
      std::swap(info_.descriptors[place], info_.descriptors[index]);
    }
  }
}

void DeclarationBase::finish() {
  if (info_.base == nullptr) {
    add_object_protocol(tables_->properties, tables_->methods);
#if PY_VERSION_HEX >= 0x03090000
    constexpr auto kDict = static_cast<Py_ssize_t>(sizeof(PyObject));
    constexpr auto kWeak = static_cast<Py_ssize_t>(sizeof(PyObject) + sizeof(PyObject*));
    tables_->members.push_back({"__dictoffset__", T_PYSSIZET, kDict, READONLY, nullptr});
    tables_->members.push_back({"__weaklistoffset__", T_PYSSIZET, kWeak, READONLY, nullptr});
#endif
  }
  tables_->members.push_back({nullptr, 0, 0, 0, nullptr});
  tables_->methods.push_back({nullptr, nullptr, 0, nullptr});
  tables_->properties.push_back({nullptr, nullptr, nullptr, nullptr, nullptr});
  add_slot(Py_tp_members, tables_->members.data());
  add_slot(Py_tp_methods, tables_->methods.data());
  add_slot(Py_tp_getset, tables_->properties.data());
  std::string doc = tables_->constructor.documentation(false, info_.doc);
  [[maybe_unused]] const std::size_t doc_size = doc.size() + 1;
  const char* doc_text = keep(std::move(doc));
  add_slot(Py_tp_doc, const_cast<char*>(doc_text));
  slots_.push_back({0, nullptr});
  PyType_Spec blueprint = {keep(std::string("Tessora.") + info_.name), static_cast<int>(size_), 0,
                           Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE | Py_TPFLAGS_HAVE_GC,
                           slots_.data()};
  PyTypeObject* base = info_.base == nullptr ? &PyBaseObject_Type : info_.base->type;
  Ref bases = tuple(Value(base));
  Ref made = take(PyType_FromSpecWithBases(&blueprint, bases.get()));
  auto* type = reinterpret_cast<PyTypeObject*>(made.get());
#if PY_VERSION_HEX < 0x03090000
  if (info_.base == nullptr) {
    type->tp_dictoffset = static_cast<Py_ssize_t>(sizeof(PyObject));
    type->tp_weaklistoffset = static_cast<Py_ssize_t>(sizeof(PyObject) + sizeof(PyObject*));
    PyType_Modified(type);
  }
  // This host keeps the text without the signature in front.
  auto* kept = static_cast<char*>(PyObject_Malloc(doc_size));
  if (kept == nullptr) throw std::bad_alloc();
  std::memcpy(kept, doc_text, doc_size);
  PyObject_Free(const_cast<char*>(type->tp_doc));
  type->tp_doc = kept;
#endif
  info_.type = type;
  engine_classes[type] = &info_;
  declared_classes.push_back(&info_);
  for (const auto& [name, record] : tables_->records) {
    Ref descriptor = Value(PyDict_GetItemString(type->tp_dict, name));
    if (!descriptor) raise(PyExc_SystemError, "%s.%s is lost", info_.name, name);
    engine_methods[descriptor.release()] = {record, &info_};
  }
  for (std::size_t index = info_.descriptors.size(); index < info_.attributes.size(); ++index) {
    Ref descriptor = Value(_PyType_Lookup(type, info_.attributes[index].name));
    info_.descriptors.push_back(descriptor.release());
  }
  put_in_order();
  Value(module_).set_attr(intern(info_.name), made);
  made.release();
}

}  // namespace tessora::host
