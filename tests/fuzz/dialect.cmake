if(TARGET velmora_sqlite)
  velmora_fuzz(dialect LINKS velmora_sqlite)
  velmora_fuzz(values LINKS velmora_sqlite)
endif()
