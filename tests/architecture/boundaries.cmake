# Fails when a folder includes what lies above it: hosts reach only the exported API and the
# public headers of the platform and the toolkit; the settings model, the file dialogs and the
# toolkit never include the subsystems built on them. Called by ctest with ROOT.
set(rules
  "apps|pipeline/|settings/|shell/|templates/|transfer/|filedialogs/|host/"
  "examples|pipeline/|settings/|shell/|templates/|transfer/|filedialogs/|host/"
  "settings|pipeline/|shell/|templates/|transfer/|filedialogs/"
  "filedialogs|pipeline/|settings/|templates/|transfer/"
  "host|pipeline/|settings/|shell/|templates/|transfer/|filedialogs/"
  "shell/toolkit|pipeline/|settings/|shell/|templates/|transfer/|filedialogs/|host/"
  "transfer|templates/"
  "templates|pipeline/checks|pipeline/entry|pipeline/plan|pipeline/gathering"
  "pipeline/naming|settings/")
set(violations "")
foreach(rule IN LISTS rules)
  string(REPLACE "|" ";" parts "${rule}")
  list(POP_FRONT parts folder)
  file(GLOB_RECURSE files ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.cpp)
  foreach(file IN LISTS files)
    file(STRINGS ${file} includes REGEX "^#include \"")
    foreach(line IN LISTS includes)
      foreach(forbidden IN LISTS parts)
        if(line MATCHES "^#include \"${forbidden}")
          string(APPEND violations "${file}: ${line}\n")
        endif()
      endforeach()
    endforeach()
  endforeach()
endforeach()
if(violations)
  message(FATAL_ERROR "includes that reach up:\n${violations}")
endif()
