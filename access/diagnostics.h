// The one way in which the library says more than a result can.
#ifndef ACCESS_DIAGNOSTICS_H_
#define ACCESS_DIAGNOSTICS_H_

#include <string>

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

// Keeps a copy of what its thread reports while it lives; the messages go their way all the same.
// Threads: the one that made it. Of two on one thread, the younger ends first.
class DiagnosticWatch {
 public:
  DiagnosticWatch();
  DiagnosticWatch(DiagnosticWatch const&) = delete;
  DiagnosticWatch& operator=(DiagnosticWatch const&) = delete;
  ~DiagnosticWatch();

  // The messages so far, without what stands in front of them, with line breaks between them.
  std::wstring const& Lines() const { return lines_; }

  // Tells every watch of this thread.
  static void Note(wchar_t const* message);
  static void Note(char const* message);

 private:
  std::wstring lines_;
  DiagnosticWatch* const elder_;
};

}  // namespace fdo

#endif  // ACCESS_DIAGNOSTICS_H_
