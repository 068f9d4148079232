// The one way in which the library says more than a result can.
#ifndef ACCESS_DIAGNOSTICS_H_
#define ACCESS_DIAGNOSTICS_H_

namespace fdo {

// Hands the message to the application's handler or, without one, writes "Quillon error: <message>" as
// one line of UTF-8 to the standard error stream, whatever the locale. Null counts as "".
// Threads: any; lines of two threads do not mix.
void ReportError(wchar_t const* message);
// The same with a message in UTF-8.
void ReportError(char const* message);

// The same for a line that begins with its own words: nothing is put in front of it.
void ReportLine(wchar_t const* line);
void ReportLine(char const* line);

}  // namespace fdo

#endif  // ACCESS_DIAGNOSTICS_H_
