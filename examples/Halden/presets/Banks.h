#pragma once

namespace halden {

// The factory banks as text, one source for each. A line that begins at the left names a preset and,
// behind a colon, its categories. The indented lines below it hold what differs from the defaults: a
// key and a value, with commas between them. A value is a number in the parameter's own unit or the
// name of a choice.
extern const char* const coastBank;
extern const char* const harbourBank;
extern const char* const inlandBank;
extern const char* const currentBank;

}  // namespace halden
