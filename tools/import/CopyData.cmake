# Copies the files we author from data/ into the program folder (cmake -P, with DATA_DIR and
# PROGRAM_DIR). Reference files and the help manual (data/help/ into help/) follow data/; the
# settings files and bookmarks are the user's and are copied only when the program folder has none.
# Each copy goes through a temporary file that is renamed into place, so an interrupted copy never
# leaves half a file.
set(QS_AUTHORED parables.dat miracles.dat prophecy.dat stories.dat Units.rtf verses.dat CREDITS.md)
file(GLOB_RECURSE QS_HELP_FILES RELATIVE ${DATA_DIR} ${DATA_DIR}/help/*)
list(APPEND QS_AUTHORED ${QS_HELP_FILES})
set(QS_USER_FILES window.ini general.cfg display.cfg bookmarks.dat)

function(qs_copy_atomically from to)
  get_filename_component(name ${to} NAME)
  get_filename_component(folder ${to} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  set(temporary ${folder}/.${name}.copying)
  file(COPY_FILE ${from} ${temporary})
  file(RENAME ${temporary} ${to})
endfunction()

file(MAKE_DIRECTORY ${PROGRAM_DIR})
foreach(name IN LISTS QS_AUTHORED)
  if(EXISTS ${DATA_DIR}/${name})
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${DATA_DIR}/${name}
                    ${PROGRAM_DIR}/${name} RESULT_VARIABLE differs OUTPUT_QUIET ERROR_QUIET)
    if(differs)
      qs_copy_atomically(${DATA_DIR}/${name} ${PROGRAM_DIR}/${name})
    endif()
  endif()
endforeach()
foreach(name IN LISTS QS_USER_FILES)
  if(EXISTS ${DATA_DIR}/${name} AND NOT EXISTS ${PROGRAM_DIR}/${name})
    qs_copy_atomically(${DATA_DIR}/${name} ${PROGRAM_DIR}/${name})
  endif()
endforeach()
