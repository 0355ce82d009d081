if(TARGET velmora_sqlite)
  velmora_fuzz(dialect LINKS velmora_sqlite)
  # Eight statements for each input.
  velmora_fuzz(values LINKS velmora_sqlite MUTATIONS 2000)
endif()
