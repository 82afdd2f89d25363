// The stack of matrices for drawing and picking in two dimensions.

#pragma once

namespace ruvex {

/// Rows (a, b, c), (d, e, f), (g, h, i). A row vector (x, y, 1) is multiplied from the left, so
/// that (g, h) is the translation.
struct VxMatrix {
    float m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

    friend bool operator==(const VxMatrix&, const VxMatrix&) = default;
};

VxMatrix operator*(const VxMatrix& a, const VxMatrix& b);

/// The inverse, by cofactors in double precision. The identity if the determinant's magnitude is
/// below 2^-50, and if the determinant is not a number.
VxMatrix invert(const VxMatrix& matrix);

/// A stack that starts with one identity. For the user-interface thread alone, like all drawing.
class VxMatrixStack {
public:
    static constexpr int kEntries = 32;

    /// Copies the top onto the stack, unless the stack is full. Returns the top.
    const VxMatrix& push();
    /// Removes the top, unless it is the last. Returns the new top.
    const VxMatrix& pop();
    /// Replaces the top by `matrix` times the top.
    void multiply(const VxMatrix& matrix);

    const VxMatrix& top() const { return entries_[depth_]; }
    const VxMatrix& inverse() const { return inverse_; }
    int depth() const { return depth_; }

private:
    VxMatrix entries_[kEntries];
    VxMatrix inverse_;
    int depth_ = 0;
};

}  // namespace ruvex
