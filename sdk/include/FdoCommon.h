// The common classes of the FDO interface.
#ifndef FDO_COMMON_H_
#define FDO_COMMON_H_

#include "Common/Array.h"
#include "Common/Collection.h"
#include "Common/Compare.h"
#include "Common/Dictionary.h"
#include "Common/DictionaryElement.h"
#include "Common/Dimensionality.h"
#include "Common/Disposable.h"
#include "Common/Exception.h"
#include "Common/FdoTypes.h"
#include "Common/GeometryType.h"
#include "Common/IDisposable.h"
#include "Common/IStreamReader.h"
#include "Common/IStreamReaderTmpl.h"
#include "Common/Io/ByteStreamReader.h"
#include "Common/Io/FileStream.h"
#include "Common/Io/MemoryStream.h"
#include "Common/Io/Stream.h"
#include "Common/Io/TextReader.h"
#include "Common/Io/TextWriter.h"
#include "Common/NamedCollection.h"
#include "Common/Ptr.h"
#include "Common/ReadOnlyNamedCollection.h"
#include "Common/Std.h"
#include "Common/StringCollection.h"
#include "Common/StringP.h"
#include "Common/Vector.h"

#endif  // FDO_COMMON_H_
