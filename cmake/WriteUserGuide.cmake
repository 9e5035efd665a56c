# cmake -DCMARK=program -DSOURCE=handbuch.md -DTARGET=folder -P WriteUserGuide.cmake
execute_process(
  COMMAND ${CMARK} --unsafe -e table ${SOURCE}
  OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY)

set(before
    "<!DOCTYPE html>
<html lang=\"de\"><head><meta charset=\"utf-8\"><title>Packwright - Handbuch</title>
<meta name=\"viewport\" content=\"width=device-width\"><style>
:root { color-scheme: light dark }
body { font-family: sans-serif; line-height: 1.5; max-width: 48em; margin: 2em auto; padding: 0 1em }
table { border-collapse: collapse }
th, td { border: 1px solid gray; padding: .3em .6em; text-align: left; vertical-align: top }
img { max-width: 100% }
</style></head><body>
")
file(WRITE ${TARGET}/handbuch.html "${before}${body}</body></html>\n")

# Chapters begin with their name: <a id="name"></a>
file(REMOVE_RECURSE ${TARGET}/kapitel)
string(REGEX MATCHALL "<a id=\"[a-z-]+\"" chapters "${body}")
foreach(chapter IN LISTS chapters)
  string(REGEX REPLACE ".*\"([a-z-]+)\"" "\\1" name "${chapter}")
  set(address "../handbuch.html#${name}")
  file(WRITE ${TARGET}/kapitel/${name}.html
       "<!DOCTYPE html>
<html lang=\"de\"><meta charset=\"utf-8\"><title>Packwright - Handbuch</title>
<meta http-equiv=\"refresh\" content=\"0; url=${address}\"><a href=\"${address}\">Handbuch</a></html>
")
endforeach()
