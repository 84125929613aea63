# Walks the tour at twice the size, for print, and takes the pictures NAMES from it into
# FOLDER/bilder.
set(walked ${FOLDER}/tour)
file(REMOVE_RECURSE ${walked})
unset(ENV{QT_QPA_PLATFORM})
set(ENV{QT_SCALE_FACTOR} 2)
set(ENV{LC_ALL} C.UTF-8)
execute_process(COMMAND ${TOUR} ${walked} RESULT_VARIABLE result OUTPUT_VARIABLE said
                ERROR_VARIABLE said TIMEOUT 60)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The tour that takes the manual's pictures failed (${result}):\n${said}")
endif()
foreach(name IN LISTS NAMES)
  if(EXISTS ${walked}/${name}.pdf)  # a printed report
    execute_process(COMMAND ${PDFTOPPM} -png -singlefile -r 110 ${walked}/${name}.pdf ${walked}/${name})
  endif()
  if(NOT EXISTS ${walked}/${name}.png)
    message(FATAL_ERROR "docs/handbuch/bilder.tex asks for '${name}', which the tour did not make.")
  endif()
  file(COPY_FILE ${walked}/${name}.png ${FOLDER}/bilder/${name}.png ONLY_IF_DIFFERENT)
endforeach()
file(TOUCH ${FOLDER}/tour.stamp)
