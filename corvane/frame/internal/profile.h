// Reading the profile file my.ini, in the manner of the platform's private
// profile strings: "[section]" lines and "key=value" lines, names compared
// without regard to case, the first section and the first key of a name
// winning (profile.cc tells the whole of it).
#ifndef CORVANE_FRAME_INTERNAL_PROFILE_H_
#define CORVANE_FRAME_INTERNAL_PROFILE_H_

#include <cstddef>
#include <string>

namespace corvane::internal {

// The value of key in section of the file at path, or "" when the file, the
// section or the key is missing. Blanks around the value are dropped, and so
// is one pair of matching quotes around it; a ";" in it is part of it. The
// value is cut to buffer_size - 1 bytes, as a buffer of that size would hold.
std::string ReadProfileString(const std::string& section, const std::string& key,
                              const std::string& path, std::size_t buffer_size = 255);

// The path of my.ini: the parent of the application path.
std::string ProfilePath();

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_PROFILE_H_
