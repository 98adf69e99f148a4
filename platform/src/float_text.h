/* Floats out of texts: exact, whatever the locale and the compiler. */
#ifndef ZEL_PLATFORM_FLOAT_TEXT_H
#define ZEL_PLATFORM_FLOAT_TEXT_H

namespace zelxml {

/*
 * Reads the decimal number that a text begins with, without a plus sign and not hexadecimal, rounded to the
 * nearest float. False, and `value` as it was, without a number and where it is beyond a float's range.
 */
[[gnu::visibility("hidden")]] bool readFloat(const char* text, float& value) noexcept;

} // namespace zelxml

#endif
