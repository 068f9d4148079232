// A tour of the FDO SDK, without a data store: a filter is parsed and walked node by node, a geometry is
// built and read, and the filter's spatial condition is asked about it. Read read_layer.cc first for what
// the library makes of all this.
#include <Fdo.h>
#include <FdoSpatial.h>

#include <iostream>
#include <string>

namespace {

std::string Utf8(FdoString* text) { return static_cast<char const*>(FdoStringP(text)); }

// Prints the tree of a filter, one node a line, and keeps the last geometry that it meets. A node calls the
// one operation that is its own; going down is up to the processor.
class Outline : public FdoIFilterProcessor, public FdoIExpressionProcessor {
 public:
  static Outline* Create() { return new Outline(); }

  // Gives: one reference, or null.
  FdoByteArray* GetLastGeometry() { return FDO_SAFE_ADDREF(lastGeometry_.p); }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    Line(filter.GetOperation() == FdoBinaryLogicalOperations_And ? "AND" : "OR");
    Down(FdoPtr<FdoFilter>(filter.GetLeftOperand()));
    Down(FdoPtr<FdoFilter>(filter.GetRightOperand()));
  }
  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    Line("NOT");
    Down(FdoPtr<FdoFilter>(filter.GetOperand()));
  }
  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    Line("comparison " + std::to_string(filter.GetOperation()));
    Down(FdoPtr<FdoExpression>(filter.GetLeftExpression()));
    Down(FdoPtr<FdoExpression>(filter.GetRightExpression()));
  }
  void ProcessInCondition(FdoInCondition& filter) override {
    Line("IN");
    Down(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    FdoPtr<FdoValueExpressionCollection> values = filter.GetValues();
    for (FdoInt32 i = 0; i < values->GetCount(); ++i) Down(FdoPtr<FdoValueExpression>(values->GetItem(i)));
  }
  void ProcessNullCondition(FdoNullCondition& filter) override {
    Line("NULL");
    Down(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
  }
  void ProcessSpatialCondition(FdoSpatialCondition& filter) override {
    Line("spatial " + std::to_string(filter.GetOperation()));
    Down(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    Down(FdoPtr<FdoExpression>(filter.GetGeometry()));
  }
  void ProcessDistanceCondition(FdoDistanceCondition& filter) override {
    Line("distance " + std::to_string(filter.GetDistance()));
    Down(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    Down(FdoPtr<FdoExpression>(filter.GetGeometry()));
  }

  void ProcessBinaryExpression(FdoBinaryExpression& expr) override {
    Line("arithmetic " + std::to_string(expr.GetOperation()));
    Down(FdoPtr<FdoExpression>(expr.GetLeftExpression()));
    Down(FdoPtr<FdoExpression>(expr.GetRightExpression()));
  }
  void ProcessUnaryExpression(FdoUnaryExpression& expr) override {
    Line("minus");
    Down(FdoPtr<FdoExpression>(expr.GetExpression()));
  }
  void ProcessFunction(FdoFunction& expr) override {
    Line("function " + Utf8(expr.GetName()));
    FdoPtr<FdoExpressionCollection> arguments = expr.GetArguments();
    for (FdoInt32 i = 0; i < arguments->GetCount(); ++i) Down(FdoPtr<FdoExpression>(arguments->GetItem(i)));
  }
  void ProcessIdentifier(FdoIdentifier& expr) override { Line("name " + Utf8(expr.GetName())); }
  void ProcessComputedIdentifier(FdoComputedIdentifier& expr) override { Text(expr); }
  void ProcessParameter(FdoParameter& expr) override { Text(expr); }
  void ProcessBooleanValue(FdoBooleanValue& expr) override { Text(expr); }
  void ProcessByteValue(FdoByteValue& expr) override { Text(expr); }
  void ProcessDateTimeValue(FdoDateTimeValue& expr) override { Text(expr); }
  void ProcessDecimalValue(FdoDecimalValue& expr) override { Text(expr); }
  void ProcessDoubleValue(FdoDoubleValue& expr) override { Text(expr); }
  void ProcessInt16Value(FdoInt16Value& expr) override { Text(expr); }
  void ProcessInt32Value(FdoInt32Value& expr) override { Text(expr); }
  void ProcessInt64Value(FdoInt64Value& expr) override { Text(expr); }
  void ProcessSingleValue(FdoSingleValue& expr) override { Text(expr); }
  void ProcessStringValue(FdoStringValue& expr) override { Text(expr); }
  void ProcessBLOBValue(FdoBLOBValue& expr) override { Text(expr); }
  void ProcessCLOBValue(FdoCLOBValue& expr) override { Text(expr); }
  void ProcessGeometryValue(FdoGeometryValue& expr) override {
    lastGeometry_ = expr.GetGeometry();
    Text(expr);
  }

 protected:
  void Dispose() override { delete this; }

 private:
  void Line(std::string const& text) const { std::cout << std::string(2 * depth_, ' ') << text << "\n"; }

  void Text(FdoExpression& expression) const { Line("value " + Utf8(expression.ToString())); }

  template <class Node>
  void Down(FdoPtr<Node> const& node) {
    ++depth_;
    node->Process(this);
    --depth_;
  }

  std::size_t depth_ = 1;
  FdoPtr<FdoByteArray> lastGeometry_;
};

// A town square with a rounded end: three straight sides, and a half circle from the fourth.
FdoIGeometry* BuildSquare(FdoFgfGeometryFactory* factory) {
  double sides[] = {0, 4, 0, 0, 6, 0, 6, 4};
  FdoPtr<FdoILineStringSegment> lines = factory->CreateLineStringSegment(FdoDimensionality_XY, 8, sides);
  FdoPtr<FdoIDirectPosition> from = lines->GetEndPosition();
  FdoPtr<FdoIDirectPosition> over = factory->CreatePositionXY(3, 7);
  FdoPtr<FdoIDirectPosition> to = lines->GetStartPosition();
  FdoPtr<FdoICircularArcSegment> arc = factory->CreateCircularArcSegment(from, over, to);
  FdoPtr<FdoCurveSegmentCollection> segments = FdoCurveSegmentCollection::Create();
  segments->Add(lines);
  segments->Add(arc);
  FdoPtr<FdoIRing> ring = factory->CreateRing(segments);
  return factory->CreateCurvePolygon(ring, nullptr);
}

void Tour() {
  FdoPtr<FdoFilter> filter = FdoFilter::Parse(
      L"(population * 2 > 1000 OR name LIKE 'New%') AND NOT closed NULL AND "
      L"shape INTERSECTS GeomFromText('POLYGON ((5 5, 20 5, 20 20, 5 20, 5 5))')");
  std::cout << "filter: " << Utf8(filter->ToString()) << "\n";
  FdoPtr<Outline> outline = Outline::Create();
  filter->Process(outline);

  FdoPtr<FdoExpression> expression = FdoExpression::Parse(L"Upper(name) + ', ' + :country");
  std::cout << "expression: " << Utf8(expression->ToString()) << "\n";
  expression->Process(outline);

  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> square = BuildSquare(factory);
  FdoPtr<FdoIEnvelope> box = square->GetEnvelope();
  std::cout << "geometry: " << Utf8(square->GetText()) << "\n";
  std::cout << "  box " << box->GetMinX() << " " << box->GetMinY() << " to " << box->GetMaxX() << " "
            << box->GetMaxY() << "\n";
  FdoPtr<FdoByteArray> fgf = factory->GetFgf(square);
  FdoPtr<FdoByteArray> wkb = factory->GetWkb(square);
  std::cout << "  " << fgf->GetCount() << " bytes of FGF, " << wkb->GetCount() << " bytes of WKB\n";

  FdoPtr<FdoByteArray> literal = outline->GetLastGeometry();
  FdoPtr<FdoIGeometry> window = factory->CreateGeometryFromFgf(literal);
  FdoPtr<FdoIGeometry> middle = factory->CreateGeometry(L"POINT (3 6.5)");
  auto const answer = [](bool holds) { return holds ? "yes" : "no"; };
  std::cout << "square intersects the filter's window: "
            << answer(FdoSpatialUtility::Evaluate(square, FdoSpatialOperations_Intersects, window)) << "\n"
            << "POINT (3 6.5) is within the square: "
            << answer(FdoSpatialUtility::Evaluate(middle, FdoSpatialOperations_Within, square)) << "\n";

  // An error is an exception that says where.
  try {
    FdoPtr<FdoFilter> broken = FdoFilter::Parse(L"population > AND name NULL");
  } catch (FdoException* raised) {
    FdoPtr<FdoException> failure(raised);
    std::cout << "a wrong filter: " << Utf8(failure->GetExceptionMessage()) << "\n";
  }
}

}  // namespace

int main() {
  try {
    Tour();
    return 0;
  } catch (FdoException* raised) {
    FdoPtr<FdoException> failure(raised);
    std::cerr << Utf8(failure->GetExceptionMessage()) << "\n";
    return 1;
  }
}
