# cmake -DOUT=… "-DFILES=a|b|c" -P embed_demo_rows.cmake: the texts as one C++ source, each as a raw literal.
string(REPLACE "|" ";" FILES "${FILES}")
set(source "#include \"velmora/data/demo_rows.h\"\n\n#include <array>\n\nnamespace velmora::data {\nnamespace {\n\nusing namespace std::string_view_literals;\n\nconstexpr std::array files{\n")
foreach(file IN LISTS FILES)
  file(READ "${file}" text)
  string(APPEND source "    R\"demo(" "${text}" ")demo\"sv,\n")
endforeach()
string(APPEND source "};\n\n}  // namespace\n\nstd::span<const std::string_view> demoFiles() {\n    return files;\n}\n\n}  // namespace velmora::data\n")
file(WRITE "${OUT}" "${source}")
