// A color as one number, for storage: three bytes, without alpha and without a dark variant. A
// value.
#pragma once

#include <cstdint>

namespace corvane {

///     EXRGBColor orange(1.0, 0.5, 0.0);
///     orange.intValue()   // 0xFF8000
///     orange.green()      // 128 / 255.0: to the nearest byte and back
class EXRGBColor {
  public:
    EXRGBColor() = default;  ///< black
    explicit EXRGBColor(std::int64_t intValue) : intValue_(intValue) {}
    /// Fractions from 0 to 1; others become the nearer end.
    EXRGBColor(double red, double green, double blue);

    /// Red from bit 16, green from bit 8, blue from bit 0.
    std::int64_t intValue() const { return intValue_; }
    void setIntValue(std::int64_t value) { intValue_ = value; }

    double red() const { return fractionFromBit(16); }
    double green() const { return fractionFromBit(8); }
    double blue() const { return fractionFromBit(0); }

    friend bool operator==(const EXRGBColor&, const EXRGBColor&) = default;

  private:
    double fractionFromBit(int bit) const;

    std::int64_t intValue_ = 0;
};

}  // namespace corvane
