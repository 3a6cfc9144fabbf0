# Embeds the admin page's files in one C++ source.
#   cmake -D DIRECTORY=<folder of page.html> -D OUTPUT=<file> -P EmbedAdminPage.cmake

file(READ "${DIRECTORY}/page.html" page)
file(READ "${DIRECTORY}/page.css" style)
file(READ "${DIRECTORY}/page.js" script)
file(READ "${DIRECTORY}/wallet.js" wallet_script)
file(READ "${DIRECTORY}/notify.js" notify_script)
string(REPLACE "/*STYLE*/" "${style}" page "${page}")
string(REPLACE "/*SCRIPT*/" "${script}${wallet_script}${notify_script}" page "${page}")

file(WRITE "${OUTPUT}" "namespace orrelo::devservice {\n"
  "extern const char* const embeddedAdminPage;\n"
  "const char* const embeddedAdminPage = R\"adminpage(${page})adminpage\";\n"
  "}  // namespace orrelo::devservice\n")
