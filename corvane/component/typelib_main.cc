// Writes the component's type library document (corvane.tlb.json) at build
// time: corvane_typelib OUTPUT.
#include <fstream>
#include <iostream>

#include "corvane/component/type_library.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: corvane_typelib OUTPUT\n";
    return 2;
  }
  std::ofstream out(argv[1], std::ios::binary | std::ios::trunc);
  out << corvane::component::TypeLibrary().dump(2) << "\n";
  out.close();
  if (!out) {
    std::cerr << "corvane_typelib: cannot write " << argv[1] << "\n";
    return 1;
  }
  return 0;
}
