#pragma once

// Assertions for broken expectations of our own code. They are active in every build, print one line on the error
// output of the process (never on a redirected one) and abort.
//
// A message names a source unit and a line that are part of the text and stay what they are while the code around them
// moves; hence both are given, where CORRADE_INTERNAL_ASSERT would take them from the compiler. A broken expectation
// whose text has neither is a CORRADE_ASSERT.

namespace VantrelEngine {

// Prints "Assertion EXPRESSION failed at UNIT:LINE" and aborts.
[[noreturn]] void assertionFailed(const char* expression, const char* unit, int line);

// Prints "Reached unreachable code at UNIT:LINE" and aborts.
[[noreturn]] void reachedUnreachable(const char* unit, int line);

}

// The expression appears in the message as it is written here, runs of white space as one blank.
#define VANTREL_ASSERT(expression, unit, line) VANTREL_ASSERT_SPELLED(expression, #expression, unit, line)

// For an expression that the message spells in another way than the code.
#define VANTREL_ASSERT_SPELLED(expression, spelling, unit, line)                                                       \
    do {                                                                                                               \
        if(!(expression)) ::VantrelEngine::assertionFailed(spelling, unit, line);                                      \
    } while(false)

#define VANTREL_UNREACHABLE(unit, line) ::VantrelEngine::reachedUnreachable(unit, line)
