#include <stdexcept>
#include <string>

struct expression_error : std::domain_error {
  expression_error(const std::string &what, int position) : std::domain_error(what), position(position) {}
  int position;
};

// The value of an expression in reverse Polish notation; throws expression_error.
double value_of(const std::string &expression);
