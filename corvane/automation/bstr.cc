// BSTR allocation: the text's length in bytes in the four bytes before the
// first character, the characters (UTF-16), then a terminating zero. The
// block comes from the C heap, so that a client that frees what the library
// allocated, or the other way round, uses the same allocator.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "corvane/automation.h"

namespace {

// The block of a BSTR holding byte_length bytes of text, the text left
// uninitialised but the terminating zero set; null when the heap is out.
BSTR AllocateBytes(std::uint32_t byte_length) {
  // Four for the prefix, two for the terminating zero (and one more where the
  // length is odd, so the zero is whole).
  const std::size_t size = sizeof(std::uint32_t) + std::size_t{byte_length} + sizeof(OLECHAR) + 1;
  auto* block = static_cast<unsigned char*>(std::malloc(size));
  if (block == nullptr) return nullptr;
  std::memcpy(block, &byte_length, sizeof byte_length);
  unsigned char* text = block + sizeof(std::uint32_t);
  std::memset(text + byte_length, 0, sizeof(OLECHAR) + 1);
  return reinterpret_cast<BSTR>(text);
}

std::uint32_t ByteLength(BSTR s) {
  std::uint32_t n;
  std::memcpy(&n, reinterpret_cast<const unsigned char*>(s) - sizeof n, sizeof n);
  return n;
}

}  // namespace

extern "C" {

BSTR SysAllocString(const OLECHAR* psz) {
  if (psz == nullptr) return nullptr;
  UINT n = 0;
  while (psz[n] != 0) ++n;
  return SysAllocStringLen(psz, n);
}

BSTR SysAllocStringLen(const OLECHAR* strIn, UINT ui) {
  if (ui > (UINT32_MAX - 8) / sizeof(OLECHAR)) return nullptr;
  const auto bytes = static_cast<std::uint32_t>(ui * sizeof(OLECHAR));
  BSTR s = AllocateBytes(bytes);
  if (s == nullptr) return nullptr;
  if (strIn != nullptr) {
    std::memcpy(s, strIn, bytes);
  } else {
    std::memset(s, 0, bytes);
  }
  return s;
}

void SysFreeString(BSTR bstrString) {
  if (bstrString == nullptr) return;
  std::free(reinterpret_cast<unsigned char*>(bstrString) - sizeof(std::uint32_t));
}

UINT SysStringLen(BSTR pbstr) {
  return pbstr == nullptr ? 0 : ByteLength(pbstr) / sizeof(OLECHAR);
}

UINT SysStringByteLen(BSTR bstr) { return bstr == nullptr ? 0 : ByteLength(bstr); }

}  // extern "C"

namespace corvane::automation::internal {

// A copy of s with the same byte length, odd ones included.
BSTR CopyBstr(BSTR s) {
  if (s == nullptr) return nullptr;
  const std::uint32_t bytes = ByteLength(s);
  BSTR copy = AllocateBytes(bytes);
  if (copy != nullptr) std::memcpy(copy, s, bytes);
  return copy;
}

}  // namespace corvane::automation::internal
