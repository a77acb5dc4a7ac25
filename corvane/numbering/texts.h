/// \file
/// Statement texts with placeholders: the numbering steps keep each class's
/// texts as data and put the values in when a step runs.
#ifndef CORVANE_NUMBERING_TEXTS_H_
#define CORVANE_NUMBERING_TEXTS_H_

#include <string>

#include "corvane/export.h"

namespace corvane::numbering {

/// text with every placeholder replaced by value.
CORVANE_EXPORT std::string Fill(const std::string& text, const std::string& placeholder,
                                const std::string& value);

}  // namespace corvane::numbering

#endif  // CORVANE_NUMBERING_TEXTS_H_
