/** A text as elements and attributes with their places, whatever is wrong with it: for what a reader
 * tolerates. */
#ifndef ZEL_INSPECT_MARKUP_H
#define ZEL_INSPECT_MARKUP_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inspect {

// Views go into the text that it was made of, as they stand there: references aren't resolved.
struct Attribute
{
    std::string_view name;
    std::string_view value;
};

struct Element
{
    std::string_view name;
    std::string_view text;  // the first that isn't white space alone
    std::size_t parent = 0; // of the first element itself
    std::vector<Attribute> attributes;
    std::vector<std::size_t> children;
};

// All elements in the order of the text; the first stands for the text as a whole. What isn't closed ends
// with the text, and a value without quotation marks before white space or the tag's end.
std::vector<Element> readMarkup(std::string_view text);

// A value with its references resolved as the analysis does it; empty for one that no text may have.
std::string resolved(std::string_view value);

} // namespace inspect

#endif
