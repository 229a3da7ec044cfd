#include "engine/object/type_record.hpp"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "engine/host/weak.hpp"
#include "engine/object/class_values.hpp"

namespace tessora::host {

namespace {

struct Records {
  std::unordered_map<PyTypeObject*, TypeRecord> by_type;
  std::unordered_map<PyObject*, PyTypeObject*> watched;  // death watch to type
  std::unordered_set<PyObject*> relevant_names;
};

Records& the_records() {
  // Never destroyed: the interpreter is gone when static objects are.
  static auto* const records = new Records;
  return *records;
}

void forget_in_cache(PyTypeObject* type) noexcept {
  RecordCache::Set& set = record_cache.sets[cache_set(type)];
  for (int way : {0, 1}) {
    if (set.types[way] == type) set.types[way] = nullptr;
  }
}

void type_died(Value death_watch) {
  Records& records = the_records();
  auto found = records.watched.find(death_watch.get());
  if (found == records.watched.end()) return;
  PyTypeObject* type = found->second;
  records.watched.erase(found);
  forget_in_cache(type);
  records.by_type.erase(type);
  Py_DECREF(death_watch.get());
}

bool overrides(PyTypeObject* type, Value method) {
  return _PyType_Lookup(type, method.get()) != _PyType_Lookup(&PyBaseObject_Type, method.get());
}

#if PY_VERSION_HEX >= 0x030C0000

// Advances whenever a watched class changes in something that the engine cares about.
std::uint64_t watched_changes = 1;

int class_dict_changed(PyDict_WatchEvent event, PyObject*, PyObject* key, PyObject*) {
  const bool names_one = event == PyDict_EVENT_ADDED || event == PyDict_EVENT_MODIFIED ||
                         event == PyDict_EVENT_DELETED;
  if (!names_one || key == nullptr || !PyUnicode_CheckExact(key) ||
      PyUnicode_CHECK_INTERNED(key) == 0 || the_records().relevant_names.contains(key)) {
    ++watched_changes;
  }
  return 0;
}

bool watch_classes(PyObject* order) {
  static const int watcher = PyDict_AddWatcher(&class_dict_changed);
  if (watcher < 0) {
    PyErr_Clear();
    return false;
  }
  for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(order); ++index) {
    auto* type = reinterpret_cast<PyTypeObject*>(PyTuple_GET_ITEM(order, index));
    // Built-in types do not change, and keep their dictionaries elsewhere.
    if ((type->tp_flags & Py_TPFLAGS_HEAPTYPE) == 0) continue;
    if (PyDict_Watch(watcher, type->tp_dict) < 0) {
      PyErr_Clear();
      return false;
    }
  }
  return true;
}

#else

constexpr std::uint64_t watched_changes = 1;
bool watch_classes(PyObject*) {
  return false;
}

#endif

}  // namespace

void add_relevant_name(Value name) {
  the_records().relevant_names.insert(name.get());
}

bool TypeRecord::is_current_unversioned() const noexcept {
  const auto* classes = PySequence_Fast_ITEMS(type->tp_mro);
  const auto count = static_cast<std::size_t>(PyTuple_GET_SIZE(type->tp_mro));
  if (!std::equal(order_.begin(), order_.end(), classes, classes + count)) return false;
  if (unversioned_tick_ == 0) return watched_changes_seen_ == watched_changes;
  return unversioned_tick_ == clocks.script;
}

// Classes of scripts stand before the engine's in the order of look-up, with few names each.
std::vector<TypeRecord::Replacement> TypeRecord::find_replacements() const {
  const auto& relevant = the_records().relevant_names;
  std::vector<Replacement> found;
  PyObject* mro = type->tp_mro;
  for (Py_ssize_t index = 0; index < PyTuple_GET_SIZE(mro); ++index) {
    auto* each = reinterpret_cast<PyTypeObject*>(PyTuple_GET_ITEM(mro, index));
    if (each == engine_class->type && each != type) break;
    if (each->tp_dict == nullptr) continue;
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    while (PyDict_Next(each->tp_dict, &position, &key, &value) != 0) {
      if (!relevant.contains(key)) continue;
      const EngineMethod* method = engine_method(value);
      found.push_back({key, method == nullptr ? nullptr : method->method,
                       Py_TYPE(value)->tp_descr_set != nullptr});
    }
    if (each == type && each == engine_class->type) break;
  }
  return found;
}

void TypeRecord::note_version() {
  // A look-up makes Python number the type's version.
  _PyType_Lookup(type, "__class__"_name.get());
  version_ = has_version(type) ? type->tp_version_tag : 0;
  if (version_ != 0) return;
  PyObject** classes = PySequence_Fast_ITEMS(type->tp_mro);
  order_.assign(classes, classes + PyTuple_GET_SIZE(type->tp_mro));
  unversioned_tick_ = watch_classes(type->tp_mro) ? 0 : clocks.script;
  watched_changes_seen_ = watched_changes;
}

void TypeRecord::refresh() {
  if (engine_class == nullptr) return;
  std::uint64_t base_generation = 0;
  if (type != engine_class->type) {
    base_generation = type_record(engine_class->type).generation_;
  } else if (engine_class->base != nullptr) {
    base_generation = type_record(engine_class->base->type).generation_;
  }
  std::vector<Replacement> now = find_replacements();
  if (now == replacements_ && base_generation == base_generation_ && generation_ != 0) {
    note_version();
    return;
  }
  base_generation_ = base_generation;
  ++generation_;
  hooked = overrides(type, "__getattribute__"_name);
  const bool properties = settle_class_values(type, *engine_class);
  properties_override = properties || hooked || overrides(type, "__setattr__"_name);
  replacements_ = find_replacements();
  methods.assign(methods.size(), nullptr);
  sets.assign(sets.size(), Answer::kUnknown);
  note_version();
}

namespace {

TypeRecord& record_in_table(PyTypeObject* type) {
  Records& records = the_records();
  auto [place, is_new] = records.by_type.try_emplace(type);
  TypeRecord& record = place->second;
  if (!is_new) return record;
  record.type = type;
  record.engine_class = engine_class_of(type);
  Ref death_watch = watch_death<&type_died>(reinterpret_cast<PyObject*>(type));
  records.watched[death_watch.get()] = type;
  death_watch.release();
  record.refresh();
  return record;
}

}  // namespace

TypeRecord& find_type_record(PyTypeObject* type) {
  RecordCache::Set& set = record_cache.sets[cache_set(type)];
  if (set.types[1] == type) {
    std::swap(set.types[0], set.types[1]);
    std::swap(set.records[0], set.records[1]);
  } else if (set.types[0] != type) {
    TypeRecord& record = record_in_table(type);
    set.types[1] = std::exchange(set.types[0], type);
    set.records[1] = std::exchange(set.records[0], &record);
  }
  TypeRecord& record = *set.records[0];
  if (!record.is_current()) record.refresh();
  return record;
}

}  // namespace tessora::host
