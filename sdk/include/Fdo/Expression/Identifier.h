// FdoIdentifier names a property or a class, with the scopes it lies in.
#ifndef FDO_EXPRESSION_IDENTIFIER_H_
#define FDO_EXPRESSION_IDENTIFIER_H_

#include "Fdo/Expression/Expression.h"

// The text of an identifier is a list of names with a colon after the schema's and periods between the
// others: "schema:scope.name". A name that holds one of those characters, or begins with a double quote,
// stands between double quotes, with the double quotes in it doubled; other names are as they are.
class FDO_API FdoIdentifier : public FdoExpression {
 public:
  // Gives: one reference.
  static FdoIdentifier* Create();
  static FdoIdentifier* Create(FdoString* text);

  // Borrowed: what the getters give is valid until SetText or the end of the identifier.
  FdoString* GetText();
  void SetText(FdoString* value);
  // The last name of the text.
  FdoString* GetName();
  // The names between the schema and the last one, from the outermost.
  FdoString** GetScope(FdoInt32& length);
  // Empty when the text names no schema.
  FdoString* GetSchemaName();

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;
  FdoExpressionItemType GetExpressionType() override;

 protected:
  FdoIdentifier();
  explicit FdoIdentifier(FdoString* text);
  ~FdoIdentifier() override;
  void Dispose() override;

 private:
  struct Parts;

  Parts* m_parts;
};

typedef FdoPtr<FdoIdentifier> FdoIdentifierP;

#endif  // FDO_EXPRESSION_IDENTIFIER_H_
