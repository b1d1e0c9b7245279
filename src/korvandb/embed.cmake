# cmake -DFOLDER=database -DOUTPUT=texts.cpp -P embed.cmake: the texts of the folder as constants of the program.
set(source "#include \"korvandb/texts.h\"\n\nnamespace zel::korvandb::texts {\n")
foreach(name schema lookups demo)
  file(READ "${FOLDER}/${name}.txt" content)
  string(APPEND source "\nconst std::string_view ${name} = R\"~text~(${content})~text~\";\n")
endforeach()
string(APPEND source "\n} // namespace zel::korvandb::texts\n")
file(WRITE "${OUTPUT}" "${source}")
