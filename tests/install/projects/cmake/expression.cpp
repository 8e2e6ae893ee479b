#include "expression.h"

#include <cmath>
#include <map>
#include <sstream>
#include <stack>

typedef std::stack<double> numbers;

static double take(numbers &stack) {
  if (stack.empty()) throw std::underflow_error("a number is missing");
  const double top = stack.top();
  stack.pop();
  return top;
}

struct operation {
  virtual ~operation() {}
  virtual void apply(numbers &stack) const = 0;
};
struct add : operation {
  void apply(numbers &stack) const { stack.push(take(stack) + take(stack)); }
};
struct multiply : operation {
  void apply(numbers &stack) const { stack.push(take(stack) * take(stack)); }
};
struct divide : operation {
  void apply(numbers &stack) const {
    const double by = take(stack);
    if (by == 0) throw std::domain_error("division by zero");
    stack.push(take(stack) / by);
  }
};
struct root : operation {
  void apply(numbers &stack) const { stack.push(std::sqrt(take(stack))); }
};

static const add the_add;
static const multiply the_multiply;
static const divide the_divide;
static const root the_root;

double value_of(const std::string &expression) {
  std::map<std::string, const operation *> operations;
  operations["+"] = &the_add;
  operations["*"] = &the_multiply;
  operations["/"] = &the_divide;
  operations["sqrt"] = &the_root;
  numbers stack;
  std::istringstream in(expression);
  int position = 1;
  try {
    for (std::string word; in >> std::ws, position = static_cast<int>(in.tellg()) + 1, in >> word;) {
      double number;
      std::istringstream digits(word);
      if (digits >> number)
        stack.push(number);
      else if (operations.count(word))
        operations[word]->apply(stack);
      else
        throw std::domain_error("what is " + word + "?");
    }
    return take(stack);
  } catch (const std::exception &error) {
    throw expression_error(error.what(), position);
  }
}
