#include <iomanip>
#include <iostream>

#include "expression.h"

int main(int argc, char **argv) {
  try {
    if (argc != 2) throw std::invalid_argument("give one expression");
    std::cout << std::fixed << std::setprecision(6) << value_of(argv[1]) << std::endl;
  } catch (const std::exception &error) {
    std::cout << "calculator: " << error.what();
    if (const expression_error *where = dynamic_cast<const expression_error *>(&error))
      std::cout << ", at " << where->position;
    std::cout << std::endl;
    return 1;
  }
}
