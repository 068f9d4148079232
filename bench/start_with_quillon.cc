// Links the library, calls it once and ends.
#include <fdo/text_conversion.h>

int main() { return fdo::ToUtf8(L"text") == "text" ? 0 : 1; }
