// The failure type of the library: a number and a description.
#include "corvane/frame/error.h"

#include <utility>

namespace corvane {

Error::Error(std::int32_t number, std::string description)
    : number_(number), description_(std::move(description)) {}

}  // namespace corvane
