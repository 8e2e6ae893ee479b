/* What the two files of this example know of each other: two functions of each world that the other calls, and two
 * classes that both know. The generated C throws them, the C++ catches them.
 */
#ifndef WORLDS_H
#define WORLDS_H

#ifdef __cplusplus

struct finding {
  int number; /* of the line */
};
struct long_line : finding {
  int length;
};

extern "C" {
#else

/* The same two classes, as a compiler lays them out in C: a base comes first. */
typedef struct finding {
  int number;
} finding;
typedef struct long_line {
  finding base;
  int length;
} long_line;

#endif

/* Generated C. survey() has the C++ side inspect every line and tells what it found. require_short_lines() throws a
 * long_line at the first line that is longer than `limit`. Both throw the int errno when the file cannot be opened. */
void survey(const char *path);
void require_short_lines(const char *path, int limit);

/* C++. inspect_line() throws std::length_error, a strange_line, or enough. what_of() reads an exception's message. */
void inspect_line(const char *text, int number);
const char *what_of(const void *exception);

#ifdef __cplusplus
}
#endif

#endif
