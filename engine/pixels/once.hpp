// Answers that are found out at first use.
#pragma once

#include <utility>

namespace tessora::render {

// While an answer is being found out it is Value(): finding out may run other threads, which must
// not wait for it, as they would for a static object.
template <class Value>
class Once {
 public:
  template <class Find>
  const Value& get(Find&& find) {
    if (!asked_) {
      asked_ = true;
      value_ = std::forward<Find>(find)();
    }
    return value_;
  }

 private:
  Value value_{};
  bool asked_ = false;
};

}  // namespace tessora::render
