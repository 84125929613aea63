# Copies the files of FROM that TO does not have yet.
file(MAKE_DIRECTORY ${TO})
file(GLOB files ${FROM}/*)
foreach(file IN LISTS files)
  get_filename_component(name ${file} NAME)
  if(NOT EXISTS ${TO}/${name})
    file(COPY ${file} DESTINATION ${TO})
  endif()
endforeach()
