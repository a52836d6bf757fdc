file(GLOB_RECURSE counters ${FOLDER}/*.gcda)
if(counters)
  file(REMOVE ${counters})
endif()
