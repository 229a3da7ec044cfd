#include "engine/object/signature.hpp"

#include <cstdlib>

#include "engine/host/names.hpp"

namespace tessora::host {

namespace {

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The place of `wanted` outside all brackets and quotes, or npos.
std::size_t find_outside(std::string_view text, char wanted, std::size_t from = 0) {
  int depth = 0;
  char quote = '\0';
  for (std::size_t place = from; place < text.size(); ++place) {
    const char each = text[place];
    if (quote != '\0') {
      if (each == quote) quote = '\0';
      continue;
    }
    if (depth == 0 && each == wanted) return place;
    if (each == '"' || each == '\'') quote = each;
    if (each == '(' || each == '[') ++depth;
    if (each == ')' || each == ']') --depth;
  }
  return std::string_view::npos;
}

Parameter parse_parameter(std::string_view text) {
  Parameter parameter;
  if (text.starts_with("**")) {
    parameter.kind = Parameter::Kind::kKeywords;
    text.remove_prefix(2);
  } else if (text.starts_with("*")) {
    parameter.kind = Parameter::Kind::kRest;
    text.remove_prefix(1);
  }
  if (const auto equals = find_outside(text, '='); equals != std::string_view::npos) {
    parameter.fallback = trimmed(text.substr(equals + 1));
    text = text.substr(0, equals);
  }
  if (const auto colon = find_outside(text, ':'); colon != std::string_view::npos) {
    parameter.type = trimmed(text.substr(colon + 1));
    text = text.substr(0, colon);
  }
  parameter.name = trimmed(text);
  return parameter;
}

}  // namespace

Signature::Signature(std::string_view text) {
  const auto open = text.find('(');
  const auto close = find_outside(text, ')', open + 1);
  name = trimmed(text.substr(0, open));
  const auto arrow = text.find("->", close);
  if (arrow != std::string_view::npos) result = trimmed(text.substr(arrow + 2));
  std::string_view list = text.substr(open + 1, close - open - 1);
  while (!trimmed(list).empty()) {
    const auto comma = find_outside(list, ',');
    parameters.push_back(parse_parameter(trimmed(list.substr(0, comma))));
    list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
  }
}

Ref Parameter::default_value() const {
  if (fallback.empty()) return {};
  if (fallback == "None") return none();
  if (fallback == "True") return boolean(true);
  if (fallback == "False") return boolean(false);
  const std::string literal(fallback);
  if (literal.front() == '"') return intern(literal.substr(1, literal.size() - 2).c_str());
  if (literal.find('.') != std::string::npos) return real(std::strtod(literal.c_str(), nullptr));
  return take(PyLong_FromString(literal.c_str(), nullptr, 10));
}

std::string Signature::documentation(bool method, std::string_view doc) const {
  std::string text(name);
  text += method ? "($self" : "(";
  bool first = !method;
  for (const Parameter& parameter : parameters) {
    text += first ? "" : ", ";
    first = false;
    if (parameter.kind == Parameter::Kind::kRest) text += "*";
    if (parameter.kind == Parameter::Kind::kKeywords) text += "**";
    text += parameter.name;
    if (parameter.fallback.empty()) continue;
    text += "=";
    text += parameter.fallback;
  }
  text += ")\n--\n\n";
  return text.append(doc);
}

}  // namespace tessora::host
