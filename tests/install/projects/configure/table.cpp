// Reads rows, prints them sorted and their sum, then what was wrong with a row.
#include <algorithm>
#include <deque>
#include <iostream>
#include <iterator>
#include <numeric>

#include "row.h"

static int add(int sum, const row &r) { return sum + r.number; }

int main() {
  std::deque<row> rows;
  std::string error;
  int line = 0;
  try {
    for (row r; ++line, std::cin >> r;) rows.push_back(r);
  } catch (const bad_row &bad) {
    error = bad.what();
  }
  std::sort(rows.begin(), rows.end());
  std::copy(rows.begin(), rows.end(), std::ostream_iterator<row>(std::cout, "\n"));
  row sum = {"sum", std::accumulate(rows.begin(), rows.end(), 0, add)};
  std::cout << sum << std::endl;
  if (!error.empty()) std::cout << error << " in line " << line << std::endl;
}
