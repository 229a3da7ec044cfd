#include "engine/object/attribute_texts.hpp"

#include <algorithm>

#include "engine/object/declaration.hpp"

namespace tessora::host {

namespace {

constexpr const char* kDefault = " Default ";

bool is_capital(char letter) {
  return letter >= 'A' && letter <= 'Z';
}

// A row's text in the middle of a sentence, without a default that it tells itself.
std::string continued(std::string sentence) {
  sentence.resize(std::min(sentence.find(kDefault), sentence.size()));
  if (sentence.size() < 2 || is_capital(sentence[1]) || !is_capital(sentence[0])) return sentence;
  sentence[0] = static_cast<char>(sentence[0] - 'A' + 'a');
  return sentence;
}

std::string quoted(const Attribute& attribute) {
  return std::string("`") + attribute.chars + "`";
}

std::string chars_of(PyObject* value) {
  Ref shown = take(PyUnicode_Check(value) ? PyObject_Str(value) : PyObject_Repr(value));
  const char* chars = PyUnicode_AsUTF8(shown.get());
  if (chars == nullptr) throw HostError();
  return chars;
}

std::string shown_lazy(const LazyDefault& standing) {
  if (standing.make == &make_vector) return "(0, 0)";
  if (standing.make != &make_color) return {};
  constexpr unsigned kByte = 0xFF;
  std::string text;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    text += (text.empty() ? "(" : ", ") + std::to_string(standing.detail >> shift & kByte);
  }
  return text + ")";
}

std::string shown(const Step& step) {
  using Kind = Step::Kind;
  if (step.kind == Kind::kMade && step.make == &new_list) return "[]";
  if (step.kind == Kind::kMade && step.make == &dictionary) return "{}";
  if (step.kind == Kind::kModuleValue) return "`" + chars_of(step.value) + "`";
  if (step.kind == Kind::kLibraryValue) return "pygame." + chars_of(step.value);
  if (step.kind != Kind::kShared) return {};
  if (step.value == lazy_dict().get()) return "{}";
  if (Py_TYPE(step.value) == lazy_default_type) {
    return shown_lazy(*static_cast<const LazyDefault*>(step.value));
  }
  if (PyUnicode_Check(step.value)) return '"' + chars_of(step.value) + '"';
  return chars_of(step.value);
}

}  // namespace

std::string with_default(const char* doc, const Step& step) {
  const std::string value = shown(step);
  return value.empty() ? doc : std::string(doc) + kDefault + value + ".";
}

std::string told_of(const Attribute& attribute) {
  return quoted(attribute) + ": " + continued(attribute.doc);
}

std::string told_of(const Attribute& first, const Attribute& second) {
  return quoted(first) + " and " + quoted(second) + ".\n\n" + told_of(first) + "\n\n" +
         told_of(second);
}

}  // namespace tessora::host
