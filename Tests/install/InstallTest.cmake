# Installs the build into a fresh folder, one component after the other, and uses what stands there:
# the program, the guide's host, the Designer plug-in. Called with BUILD, SOURCE, WORK, CONFIG,
# VERSION, the folders of an installation and what to compile with.
set(stage ${WORK}/stage)
file(LOCK ${WORK}.lock GUARD PROCESS TIMEOUT 500)  # another run may be at it
file(REMOVE_RECURSE ${WORK})

function(run output)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE said ERROR_VARIABLE faults RESULT_VARIABLE status)
  if(NOT status STREQUAL "0")
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${status}\n${said}${faults}")
  endif()
  set(${output} "${said}" PARENT_SCOPE)
endfunction()

function(expect actual expected what)
  if(NOT actual STREQUAL expected)
    message(FATAL_ERROR "${what}:\n${actual}\nexpected:\n${expected}")
  endif()
endfunction()

function(install_component name)
  run(ignored ${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --strip --prefix ${stage}
    --component ${name})
endfunction()

# ---- no file without a component -----------------------------------------------------------------
install_component(Unspecified)
file(GLOB strays ${stage}/*)
expect("${strays}" "" "files without a component")

# ---- runtime: the program finds module and samples; help and licence are there -------------------
install_component(runtime)
set(program ${stage}/${BINDIR}/dialoghost --settings ${WORK}/settings)
run(expected ${BUILD}/bin/dialoghost list --json)
run(listed ${program} list --json)
expect("${listed}" "${expected}" "functions")
run(result ${program} eval "host.onDialog(d => d.accept()), ValueDialog([1, 2], ['R1', 'R2'])")
expect("${result}" "[1,2]\n" "result of the program's call")
run(ignored ${program} tour --out ${WORK}/tour ValueDialog)
foreach(file ${DOCDIR}/LICENSE ${DOCDIR}/docs/dependencies.md
    ${DATA_DIR}/help/ValueDialog.md ${DATA_DIR}/docs/scripting.md)
  if(NOT EXISTS ${stage}/${file})
    message(FATAL_ERROR "${file} is not installed")
  endif()
endforeach()

# ---- dev and doc: the guide's host, the headers, the Designer plug-in ----------------------------
install_component(dev)
install_component(doc)
file(READ ${stage}/${INCLUDE_DIR}/README.md guide)
foreach(block cpp:host.cpp cmake:CMakeLists.txt text:expected.txt)
  string(REPLACE ":" ";" block ${block})
  list(POP_FRONT block language file)
  if(NOT guide MATCHES "\n```${language}\n(.*)$")
    message(FATAL_ERROR "the guide has no ${language}")
  endif()
  string(REGEX REPLACE "\n```\n.*$" "\n" text "${CMAKE_MATCH_1}")
  file(WRITE ${WORK}/host/${file} "${text}")
endforeach()
set(checks ${WORK}/checks)
run(ignored ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${checks} -G ${GENERATOR}
  -DSTAGE=${stage} -DHOST=${WORK}/host -DINCLUDE_DIR=${INCLUDE_DIR}
  -DQt5_DIR=${QT} -DCMAKE_CXX_COMPILER=${COMPILER}
  -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
run(ignored ${CMAKE_COMMAND} --build ${checks})

set(ENV{XDG_CONFIG_HOME} ${WORK}/host-settings)
run(said ${checks}/host/host)
file(READ ${WORK}/host/expected.txt expected)
string(REPLACE "…\n" ".*" expected "${expected}")
if(NOT said MATCHES "^${expected}$")
  message(FATAL_ERROR "the guide's host prints:\n${said}")
endif()
string(REGEX MATCHALL "\n *\"kind\": \"legacy\"" declared "${listed}")
string(REGEX MATCHALL "[A-Za-z_0-9]+ [0-9]+\\.\\.[0-9]+\n" shown "${said}")
list(LENGTH declared declared)
list(LENGTH shown shown)
expect("${shown}" "${declared}" "functions that the guide's host lists")

run(widgets ${checks}/DesignerCheck ${stage}/${LIBDIR}/designer/libHostWidgetsDesigner.so)
if(NOT widgets MATCHES "^(.*\n)?Spinner\n")
  message(FATAL_ERROR "the Designer plug-in offers:\n${widgets}")
endif()

# ---- names and paths in the files ----------------------------------------------------------------
function(expect_dynamic file pattern)
  run(dynamic ${READELF} -d ${stage}/${file})
  if(NOT dynamic MATCHES "${pattern}")
    message(FATAL_ERROR "${file} does not say ${pattern}:\n${dynamic}")
  endif()
endfunction()

string(REGEX MATCH "^[0-9]+\\.[0-9]+" interface ${VERSION})
set(libraries HostSupport HostSupportQt HostWidgets)
foreach(library ${libraries})
  expect_dynamic(${LIBDIR}/lib${library}.so "soname: \\[lib${library}\\.so\\.${interface}\\]")
endforeach()
list(TRANSFORM libraries REPLACE "(.+)" "${LIBDIR}/lib\\1.so")
foreach(file ${libraries} ${LIBDIR}/libDialogs1.so ${LIBDIR}/designer/libHostWidgetsDesigner.so
    lib/kelvarin-dialogs/devices/Laplace_2.so ${BINDIR}/dialoghost ${BINDIR}/brennixcheck)
  expect_dynamic(${file} "RUNPATH[^\n]*\\[\\$ORIGIN[^:\n]*\\]")
endforeach()

file(GLOB_RECURSE files ${stage}/*)
foreach(path ${BUILD} ${SOURCE})
  string(HEX ${path} narrow)
  string(REGEX REPLACE "(..)" "\\100" wide ${narrow})  # as QString has it
  foreach(file ${files})
    file(READ ${file} bytes HEX)
    foreach(text ${narrow} ${wide})
      string(FIND "${bytes}" ${text} place)
      if(NOT place EQUAL -1)
        message(FATAL_ERROR "${file} names ${path}")
      endif()
    endforeach()
  endforeach()
endforeach()
