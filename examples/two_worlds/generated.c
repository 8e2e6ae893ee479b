/* The generated half: C as a compiler emits it for the C++ functions that stand in the comments. Every record and call
 * that looks like plx is explained in plx/runtime.h.
 *
 * The C++ source that this was translated from:
 *
 *     struct report {                             struct text_file {
 *       const char* path;                           FILE* stream;  char* line;  size_t size;  int number;
 *       int lines, too_long, strange;               explicit text_file(const char* path);   // throws int: errno
 *       ~report();  // prints the totals            ~text_file();                           // closes
 *     };                                          };
 *
 *     void survey(const char* path) {
 *       report totals(path);
 *       text_file file(path);
 *       while (file.next()) {
 *         ++totals.lines;
 *         try {
 *           inspect_line(file.line, file.number);
 *         } catch (const std::logic_error& error) {
 *           if (++totals.too_long <= 2) printf(...);
 *         } catch (const strange_line& error) {
 *           if (++totals.strange <= 2) printf(...);
 *         }
 *       }
 *     }
 *
 *     void require_short_lines(const char* path, int limit) {
 *       text_file file(path);
 *       while (file.next())
 *         if (strlen(file.line) > limit) throw long_line(file.number, strlen(file.line));
 *     }
 */
#define _GNU_SOURCE
#include "worlds.h"

#include <errno.h>
#include <plx/runtime.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/types.h>

/* ---- Type descriptors: what is thrown and caught here -------------------------------------------------------------
 *
 * The C++ compiler emits these classes too. Their names in its type records serve as identities, so that both worlds
 * mean the same type. */
extern const char _ZTS7finding[], _ZTS9long_line[], _ZTS12strange_line[];

static const a_type_info_impl finding_type = {PLX_TYPE_INFO_VTABLE, "finding", _ZTS7finding, 0};
static const a_base_class_spec long_line_bases[] = {{&finding_type, 0, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
static const a_type_info_impl long_line_type = {PLX_TYPE_INFO_VTABLE, "long_line", _ZTS9long_line, long_line_bases};
static const a_type_info_impl strange_line_type = {PLX_TYPE_INFO_VTABLE, "strange_line", _ZTS12strange_line, 0};

/* ---- report ------------------------------------------------------------------------------------------------ */

typedef struct report {
  const char *path;
  int lines, too_long, strange;
} report;

static void report_destroy(void *object, int flags) {
  report *self = (report *)object;
  (void)flags;
  printf("  [C]   totals: %d lines, %d fine, %d too long, %d strange\n", self->lines,
         self->lines - self->too_long - self->strange, self->too_long, self->strange);
}

/* ---- text_file --------------------------------------------------------------------------------------------- */

typedef struct text_file {
  FILE *stream;
  char *line;
  size_t size;
  int number;
} text_file;

static void text_file_construct(text_file *self, const char *path) {
  self->line = 0;
  self->size = 0;
  self->number = 0;
  self->stream = fopen(path, "r");
  if (self->stream == 0) {
    /* throw errno; */
    int *object = (int *)__throw_setup(&__TI_i, sizeof *object, 0);
    *object = errno;
    __throw();
  }
}

static void text_file_destroy(void *object, int flags) {
  text_file *self = (text_file *)object;
  (void)flags;
  printf("  [C]   file closed after line %d\n", self->number);
  free(self->line);
  fclose(self->stream);
}

static int text_file_next(text_file *self) {
  ssize_t length = getline(&self->line, &self->size, self->stream);
  if (length < 0) return 0;
  if (self->line[length - 1] == '\n') self->line[length - 1] = 0;
  ++self->number;
  return 1;
}

/* ---- survey --------------------------------------------------------------------------------------------------------
 *
 * Two objects to destroy, so two regions. The newest live object's region is the current one, and each names the region
 * to go on with: 1 file -> 0 totals -> none. */
static const a_region_record survey_regions[] = {
    {(a_routine)report_destroy, 0, PLX_NO_REGION, 0},
    {(a_routine)text_file_destroy, 1, 0, 0},
};

/* catch (const std::logic_error&), catch (const strange_line&) */
static const an_exception_type_specification survey_clauses[] = {
    {&__TI_St11logic_error, 0},
    {&strange_line_type, PLX_TYPE_LAST},
};

void survey(const char *path) {
  report totals;
  text_file file;
  void *addresses[2];
  an_eh_stack_entry function, block;

  /* The function's entry: from here on a throw destroys what is alive. */
  addresses[0] = &totals;
  addresses[1] = &file;
  function.next = __curr_eh_stack_entry;
  function.kind = PLX_EH_FUNCTION;
  function.body.function.region_table = survey_regions;
  function.body.function.object_addresses = addresses;
  function.body.function.array_table = 0;
  function.body.function.saved_region = __eh_curr_region;
  __eh_curr_region = PLX_NO_REGION;
  __curr_eh_stack_entry = &function;

  /* report totals(path); text_file file(path); */
  totals.path = path;
  totals.lines = totals.too_long = totals.strange = 0;
  __eh_curr_region = 0;
  text_file_construct(&file, path);
  __eh_curr_region = 1;

  while (text_file_next(&file)) {
    ++totals.lines;

    /* try */
    block.next = __curr_eh_stack_entry;
    block.kind = PLX_EH_TRY_BLOCK;
    block.body.try_block.clause_list = survey_clauses;
    block.body.try_block.handled_exception = 0;
    block.body.try_block.try_region = __eh_curr_region;
    __curr_eh_stack_entry = &block;
    if (setjmp(block.body.try_block.jump_buffer) == 0) {
      inspect_line(file.line, file.number);
    } else {
      const void *error = __caught_object_address;
      int clause = __catch_clause_number;
      __exception_caught();
      if (clause == 1) {
        if (++totals.too_long <= 2) printf("  [C]   caught std::logic_error: %s\n", what_of(error));
      } else {
        if (++totals.strange <= 2) printf("  [C]   caught strange_line: %s\n", what_of(error));
      }
      __free_thrown_object();
    }
    __curr_eh_stack_entry = block.next;
  }

  /* The scope's end: what a throw would have destroyed is destroyed by calls. */
  __eh_curr_region = 0;
  text_file_destroy(&file, 2);
  __eh_curr_region = PLX_NO_REGION;
  report_destroy(&totals, 2);
  __eh_curr_region = function.body.function.saved_region;
  __curr_eh_stack_entry = function.next;
}

/* ---- require_short_lines ----------------------------------------------------------------------------------- */

static const a_region_record short_lines_regions[] = {{(a_routine)text_file_destroy, 0, PLX_NO_REGION, 0}};

void require_short_lines(const char *path, int limit) {
  text_file file;
  void *addresses[1];
  an_eh_stack_entry function;

  addresses[0] = &file;
  function.next = __curr_eh_stack_entry;
  function.kind = PLX_EH_FUNCTION;
  function.body.function.region_table = short_lines_regions;
  function.body.function.object_addresses = addresses;
  function.body.function.array_table = 0;
  function.body.function.saved_region = __eh_curr_region;
  __eh_curr_region = PLX_NO_REGION;
  __curr_eh_stack_entry = &function;

  text_file_construct(&file, path);
  __eh_curr_region = 0;

  while (text_file_next(&file)) {
    int length = (int)strlen(file.line);
    if (length > limit) {
      /* throw long_line(file.number, length); */
      long_line *object = (long_line *)__throw_setup(&long_line_type, sizeof *object, 0);
      object->base.number = file.number;
      object->length = length;
      __throw();
    }
  }

  __eh_curr_region = PLX_NO_REGION;
  text_file_destroy(&file, 2);
  __eh_curr_region = function.body.function.saved_region;
  __curr_eh_stack_entry = function.next;
}
