# Files that become part of the programs, as they are, without a compiler having to read them.
#
# quillon_embed_files(<target> <symbol> <file>...) makes the object library <target>, to link into another one. It defines
#   extern "C" const struct { const char* name; const char* bytes; std::size_t size; } <symbol>[];   in the order given
#   extern "C" const std::size_t <symbol>Count;
# with the file names without their folders. The assembler takes in each file; a changed file is taken in again.
#
# The text below is for the assemblers of gcc and clang on ELF systems. Another system needs its own spelling of the
# sections and symbols, and a toolchain without .incbin an array of bytes generated in its place (or `ld -r -b binary`);
# those who use the two symbols see no difference. The caller has said enable_language(ASM).
function(quillon_embed_files target symbol)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(word .quad)
  else()
    set(word .long)
  endif()
  set(contents "")
  set(rows "")
  set(index 0)
  foreach(file ${ARGN})
    get_filename_component(path ${file} ABSOLUTE)
    get_filename_component(name ${file} NAME)
    string(APPEND contents ".Lname${index}: .asciz \"${name}\"\n.balign 16\n.Lbegin${index}:\n"
                           ".incbin \"${path}\"\n.Lend${index}:\n")
    string(APPEND rows "${word} .Lname${index}, .Lbegin${index}, .Lend${index} - .Lbegin${index}\n")
    list(APPEND paths ${path})
    math(EXPR index "${index} + 1")
  endforeach()

  set(source ${CMAKE_CURRENT_BINARY_DIR}/${target}.S)
  set(text
      ".section .rodata\n${contents}"
      ".globl ${symbol}Count\n.type ${symbol}Count, %object\n.balign 8\n${symbol}Count: ${word} ${index}\n"
      ".size ${symbol}Count, . - ${symbol}Count\n"
      ".section .data.rel.ro, \"aw\"\n"
      ".globl ${symbol}\n.type ${symbol}, %object\n.balign 8\n${symbol}:\n${rows}.size ${symbol}, . - ${symbol}\n"
      ".section .note.GNU-stack, \"\", %progbits\n")
  list(JOIN text "" text)
  file(CONFIGURE OUTPUT ${source} CONTENT "${text}" @ONLY)
  set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS "${paths}")
  add_library(${target} OBJECT ${source})
endfunction()
