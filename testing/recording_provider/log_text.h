// How the parts of a command read in the log of a recorder.
#ifndef TESTING_RECORDING_PROVIDER_LOG_TEXT_H_
#define TESTING_RECORDING_PROVIDER_LOG_TEXT_H_

#include <functional>
#include <string>

#include "Fdo.h"

namespace recording_provider {

// " name=[a,b]", empty for an empty collection. After each identifier stands what suffix gives for it.
std::wstring ListText(wchar_t const* name, FdoIdentifierCollection& identifiers,
                      std::function<std::wstring(FdoIdentifier&)> const& suffix = nullptr);

// " values=[name='x',shape=NULL]"; a value that is a null pointer reads as nothing.
std::wstring ValuesText(FdoPropertyValueCollection& values);

// " filter=...", empty for null. A filter without a text form is named so.
std::wstring FilterText(FdoFilter* filter);

// " name=text", empty for an empty text.
std::wstring SettingText(wchar_t const* name, std::wstring const& text);

// " schema=S classes=[...]"
std::wstring SchemaText(FdoFeatureSchema& schema);

}  // namespace recording_provider

#endif  // TESTING_RECORDING_PROVIDER_LOG_TEXT_H_
