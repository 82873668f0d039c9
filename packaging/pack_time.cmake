# Two packages of one commit are the same bytes: all times in a package are the time of its change
# log's first entry. cpack reads this file first.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  set(ENV{SOURCE_DATE_EPOCH} ${CPACK_VANTORA_RELEASE_SECONDS})
endif()
