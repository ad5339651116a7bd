# cmake -D INPUT=demo.jsonl -D OUTPUT=Demo.cpp -P EmbedDemo.cmake
# Writes a source that holds the recording, in pieces, as compilers need not take long literals.
file(READ ${INPUT} text)
string(LENGTH "${text}" length)
set(pieceLength 15000)
set(pieces "")
set(start 0)
while(start LESS length)
  string(SUBSTRING "${text}" ${start} ${pieceLength} piece)
  string(APPEND pieces "    R\"demo(${piece})demo\",\n")
  math(EXPR start "${start} + ${pieceLength}")
endwhile()
file(WRITE ${OUTPUT} "// Made from data/demo.jsonl.
#include \"hosts/replay/Demo.h\"

namespace wayfell {
namespace {

constexpr std::string_view kPieces[] = {
${pieces}};

}  // namespace

ByteSource demoBytes() {
  return [piece = std::begin(kPieces), source = bytesOfText(\"\")](char* buffer,
                                                                std::size_t size) mutable {
    std::size_t count = source(buffer, size);
    while (count == 0 && piece != std::end(kPieces)) {
      source = bytesOfText(*piece++);
      count = source(buffer, size);
    }
    return count;
  };
}

}  // namespace wayfell
")
