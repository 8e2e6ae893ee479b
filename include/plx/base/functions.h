// Function templates of the library stand in this inner namespace. An unqualified call with iterators of the library
// does not look in here, so that a program's own _insertion_sort(v.begin(), v.end(), order) stays its own; __zor::name
// does.
#ifndef PLX_FUNCTIONS_H
#define PLX_FUNCTIONS_H

namespace __zor {
namespace _functions {}
using namespace _functions;
}  // namespace __zor

#endif
