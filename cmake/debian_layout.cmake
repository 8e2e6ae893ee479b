# Run by CPack on the installed files: what Debian wants in other places and forms.

set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)

# run(COMMAND...): or the package is not made.
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# 32-bit libraries of 64-bit machines; the drivers and the CMake package look there too, gdb finds its file by the path.
file(RENAME ${root}/lib ${root}/lib32)
if(EXISTS ${root}/share/gdb/auto-load/usr/lib)
  file(RENAME ${root}/share/gdb/auto-load/usr/lib ${root}/share/gdb/auto-load/usr/lib32)
endif()

# Debuggers walk the stack by what is kept.
file(GLOB archives ${root}/lib32/libplx*.a)
run(strip --strip-unneeded --keep-section=.debug_frame ${root}/lib32/libplx.so.${CPACK_PACKAGE_VERSION})
run(strip -D --strip-debug ${archives})

# The dynamic linker looks there by itself.
file(GLOB packages ${root}/share/pkgconfig/plx*.pc)
run(sed -i "s|^libdir=.*|libdir=\${prefix}/lib32|\; s| -Wl,-rpath,\${libdir}||" ${packages})

string(TIMESTAMP year "%Y" UTC)
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(YEAR ${year})
configure_file(${CPACK_PLX_SOURCE}/driver/debian_copyright ${root}/share/doc/plx/copyright @ONLY)
file(WRITE ${root}/share/doc/plx/changelog "plx (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium\n\n"
  "  * Release ${CPACK_PACKAGE_VERSION}; see CHANGELOG.md.\n\n -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}\n")
file(GLOB pages ${root}/share/man/man*/*)
run(gzip -9nf ${pages} ${root}/share/doc/plx/changelog)
