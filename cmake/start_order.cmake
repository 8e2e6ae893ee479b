# The order of the sources in libplx.so, to save page faults. What every start executes stands together at the beginning
# of the text; the 8 KB of exception memory stand behind all other zero-initialised data, so that what a start writes
# lies on one page. A source that is not named here costs at most a page fault.

set(PLX_ORDERED_SOURCES
  libC/exit.cpp libC/needed_destruction.cpp libC/eh_globals.cpp libC/eh_tools.cpp libC/operator_new.cpp
  libC/operator_delete.cpp
  string/representation.cpp string/block_pool.cpp string/modify.cpp exceptions/bad_alloc.cpp
  locale/default_locale.cpp locale/locale.cpp locale/imp.cpp locale/facet.cpp locale/quick.cpp locale/standard_facets.cpp
  locale/numpunct.cpp locale/ctype.cpp locale/moneypunct.cpp
  iostream/standard_streams.cpp iostream/filebuf.cpp iostream/filebuf_open.cpp iostream/streambuf.cpp
  iostream/ios_base.cpp iostream/basic_ios.cpp iostream/ostream.cpp iostream/istream.cpp iostream/output_operation.cpp
  iostream/insert_characters.cpp iostream/insert_text.cpp iostream/put_character.cpp iostream/file_output.cpp
  locale/collate.cpp locale/codecvt.cpp locale/time_put.cpp locale/time_get.cpp locale/money_put.cpp locale/money_get.cpp
  locale/num_put.cpp locale/num_get.cpp)
set(PLX_LAST_SOURCES libC/eh_memory.cpp)

foreach(source IN LISTS PLX_ORDERED_SOURCES PLX_LAST_SOURCES)
  if(NOT source IN_LIST PLX_COMMON_SOURCES)
    message(WARNING "cmake/start_order.cmake names ${source}, which is not there")
    list(REMOVE_ITEM PLX_ORDERED_SOURCES ${source})
    list(REMOVE_ITEM PLX_LAST_SOURCES ${source})
  endif()
endforeach()
list(REMOVE_ITEM PLX_COMMON_SOURCES ${PLX_ORDERED_SOURCES} ${PLX_LAST_SOURCES})
list(PREPEND PLX_COMMON_SOURCES ${PLX_ORDERED_SOURCES})
list(APPEND PLX_COMMON_SOURCES ${PLX_LAST_SOURCES})
