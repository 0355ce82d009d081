velmora_fuzz(script LINKS velmora_script)
