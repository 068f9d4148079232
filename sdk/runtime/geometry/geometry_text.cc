// Geometries to and from FGF text.
#include <string>
#include <vector>

#include "sdk/runtime/geometry/fgf_geometry.h"
#include "sdk/runtime/text/fgf_text.h"
#include "sdk/runtime/text/text_error.h"

namespace fdo_sdk {

std::unique_ptr<std::wstring> MakeText(FgfBytes const& bytes) {
  try {
    return std::make_unique<std::wstring>(FgfToText(bytes.data, bytes.size));
  } catch (TextError const& error) {
    throw FdoException::Create(error.message.c_str());
  }
}

}  // namespace fdo_sdk

FdoIGeometry* FdoFgfGeometryFactory::CreateGeometry(FdoString* text) {
  if (text == nullptr) fdo_sdk::ThrowFailure(L"There is no text to read.");
  std::vector<FdoByte> fgf;
  try {
    fgf = fdo_sdk::TextToFgf(text);
  } catch (fdo_sdk::TextError const& error) {
    throw FdoException::Create(fdo_sdk::MessageWithPlace(error).c_str());
  }
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(fgf.data(), static_cast<FdoInt32>(fgf.size()));
  return CreateGeometryFromFgf(array);
}
