// Unit normals of the triangles of a height grid.
#pragma once

#include <cmath>
#include <limits>

namespace morvane {

struct Vec3 {
  float x, y, z;
};

/// 1 / length of a vector of squared length `squared`. 0 when the length is 0, infinite or NaN. It
/// has no branches, so that loops over it are vectorised.
inline float inverseLength(float squared) {
  const bool known = (squared > 0.0F) & (squared <= std::numeric_limits<float>::max());
  const float inverse = 1.0F / std::sqrt(squared);
  return known ? inverse : 0.0F;
}

/// `vector` × `inverse`; zero when `inverse` is 0, even if the vector has a NaN.
inline Vec3 scaled(const Vec3& vector, float inverse) {
  const bool known = inverse > 0.0F;
  const Vec3 product = {vector.x * inverse, vector.y * inverse, vector.z * inverse};
  return {known ? product.x : 0.0F, known ? product.y : 0.0F, known ? product.z : 0.0F};
}

/// `vector` at length 1; zero when it has no direction.
inline Vec3 unit(const Vec3& vector) {
  return scaled(vector,
                inverseLength(vector.x * vector.x + vector.y * vector.y + vector.z * vector.z));
}

/// Whether a point with this vertex normal (x, y, z) belongs to a face: then the sum of its face
/// normals points up.
inline bool hasFace(const float* normal) { return normal[2] > 0.0F; }

/// The unit normal of a triangle with one edge along a row, `dx` long, from height `left` to
/// `right`, and one along a column, `dy` long, from height `top` to `bottom`. Zero when a height is
/// missing (NaN). It is the cross product of the edges without the terms that are zero.
inline Vec3 faceNormal(float dx, float dy, float left, float right, float top, float bottom) {
  return unit({dy * (left - right), -(bottom - top) * dx, dx * dy});
}

}  // namespace morvane
