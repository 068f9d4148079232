// Lists of values and sub-selects.
#include <algorithm>

#include "Fdo/Filter/InCondition.h"
#include "Fdo/Filter/NullCondition.h"
#include "sdk/runtime/text/grammar.h"
#include "sdk/runtime/text/join_words.h"
#include "sdk/runtime/text/text_error.h"

namespace fdo_sdk {

void Grammar::MakeNullTest() {
  Operand const property = Pop();
  Push(FdoNullCondition::Create(static_cast<FdoIdentifier*>(property.expression.p)), 1);
}

FdoValueExpression* Grammar::WholeValue() {
  std::size_t const begin = token_.begin;
  Push(FdoInCondition::Create(), 1);  // what AddValue adds to
  ParsePrefix();
  AddValue(begin);
  RequireEnd();
  FdoPtr<FdoValueExpressionCollection> values = static_cast<FdoInCondition*>(Top().filter.p)->GetValues();
  return values->GetItem(0);
}

void Grammar::ParseMembership() {
  if (!Is(TokenKind::kOpen)) Expected(L"\"(\"");
  Enter();
  BeginMembership();
  Advance();
  if (IsNameWord(L"SELECT")) {
    Advance();
    ParseSubSelect();
    AddSubSelect();
  } else {
    for (;;) {
      std::size_t const valueBegin = token_.begin;
      ParsePrefix();
      AddValue(valueBegin);
      if (!Is(TokenKind::kComma)) break;
      Advance();
    }
    Expect(TokenKind::kClose, L"\",\" or \")\"");
  }
  --nesting_;
}

void Grammar::BeginMembership() {
  Operand const property = Pop();
  FdoPtr<FdoInCondition> condition = FdoInCondition::Create();
  condition->SetPropertyName(static_cast<FdoIdentifier*>(property.expression.p));
  Push(condition.Detach(), 1);
}

void Grammar::AddValue(std::size_t begin) {
  Operand const operand = Pop();
  auto* value = dynamic_cast<FdoValueExpression*>(operand.expression.p);
  if (value == nullptr) {
    throw TextError{begin, L"expected a literal or a parameter."};
  }
  FdoPtr<FdoValueExpressionCollection> values = static_cast<FdoInCondition*>(Top().filter.p)->GetValues();
  values->Add(value);
  Top().height = std::max(Top().height, Above(operand.height));
}

void Grammar::AddSubSelect() {
  Operand const operand = Pop();
  auto* subSelect = static_cast<FdoSubSelectExpression*>(operand.expression.p);
  static_cast<FdoInCondition*>(Top().filter.p)->SetSubSelect(subSelect);
  Top().height = Above(operand.height);
}

// Reads SELECT where it begins a sub-select: it is no reserved word, only a name right behind it makes it
// one.
bool Grammar::TakeSelect() {
  if (!IsNameWord(L"SELECT")) return false;
  Lexer behind = lexer_;
  if (behind.Next().kind != TokenKind::kName) return false;
  Advance();
  return true;
}

void Grammar::ParseSubSelect() {
  BeginSubSelect();
  ParseJoins();
  if (IsNameWord(L"WHERE")) {
    Advance();
    ParseInfix(Power::kOr);
    RequireFilter();
    AddWhere();
  }
  Top().height = Above(Top().height);
  Expect(TokenKind::kClose, L"a join, WHERE or \")\"");
}

void Grammar::BeginSubSelect() {
  FdoPtr<FdoIdentifier> property = TakeName(L"the name of a property");
  ExpectWord(L"FROM");
  FdoPtr<FdoIdentifier> selected = TakeName(L"the name of a class");
  Push(FdoSubSelectExpression::Create(selected, property));
}

void Grammar::AddWhere() {
  Operand const filter = Pop();
  static_cast<FdoSubSelectExpression*>(Top().expression.p)->SetFilter(filter.filter);
  Top().height = std::max(Top().height, filter.height);
}

void Grammar::ParseJoins() {
  while (BeginJoin()) {
    bool const hasCondition = IsNameWord(L"ON");
    if (hasCondition) {
      Advance();
      ParseInfix(Power::kOr);
      RequireFilter();
    }
    EndJoin(hasCondition);
  }
}

// Reads a join up to its condition and adds it, when there is one.
bool Grammar::BeginJoin() {
  JoinWords const* kind = nullptr;
  for (JoinWords const& known : kJoinWords) {
    if (IsNameWord(known.words.substr(0, known.words.find(L' ')))) kind = &known;
  }
  if (kind == nullptr) return false;
  for (std::wstring_view words = kind->words; !words.empty();) {
    std::size_t const end = std::min(words.find(L' '), words.size());
    ExpectWord(words.substr(0, end));
    words.remove_prefix(std::min(end + 1, words.size()));
  }
  Token const first = token_;
  FdoPtr<FdoIdentifier> joined = TakeName(L"the name of a class");
  FdoPtr<FdoJoinCriteria> join = FdoJoinCriteria::Create(joined, kind->type);
  if (IsNameWord(L"AS")) {
    Advance();
    FdoPtr<FdoIdentifier> alias = TakeName(L"a name");
    join->SetAlias(alias->GetName());
  }
  FdoPtr<FdoJoinCriteriaCollection> joins =
      static_cast<FdoSubSelectExpression*>(Top().expression.p)->GetJoinCriteria();
  FdoPtr<FdoJoinCriteria> known = joins->FindItem(join->HasAlias() ? join->GetAlias() : joined->GetText());
  if (known != nullptr) {
    throw TextError{first.begin, L"expected a join of another name, but found " + lexer_.Show(first) + L"."};
  }
  joins->Add(join);
  return true;
}

void Grammar::EndJoin(bool hasCondition) {
  if (!hasCondition) return;
  Operand const condition = Pop();
  FdoPtr<FdoJoinCriteriaCollection> joins =
      static_cast<FdoSubSelectExpression*>(Top().expression.p)->GetJoinCriteria();
  FdoPtr<FdoJoinCriteria> join = joins->GetItem(joins->GetCount() - 1);
  join->SetFilter(condition.filter);
  Top().height = std::max(Top().height, condition.height);
}

}  // namespace fdo_sdk
