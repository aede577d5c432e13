// What the tests and the eye in the program have in common.

#ifndef TESTS_KEYBOARD_EYE_H
#define TESTS_KEYBOARD_EYE_H

/// The environment variable that names the socket on which the eye answers.
constexpr const char* eyeVariable = "PSTYLE_TEST_EYE";

/// The X message that marks a place in the program's input; its number is in the first long.
constexpr const char* markMessage = "PSTYLE_TEST_MARK";

#endif
