// The camera of the 3D view as a plain value: the position of the eye, the rotation and pan of the
// model, and how the mouse changes them.
#pragma once

#include <cstddef>
#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include "surface/statistics.h"
#include "surface/surface_limits.h"

namespace morvane {

/// `kModelUnitsPerHeight` in the precision of the view.
inline constexpr auto kHeightToModel = static_cast<float>(kModelUnitsPerHeight);

/// The length of a picking ray in model units, far larger than the scene.
inline constexpr float kRayLength = 1000.0F;

/// The vertical field of view in degrees, and the nearest distance from the eye that is drawn.
inline constexpr float kFieldOfView = 45.0F;
inline constexpr float kNearPlane = 0.05F;

/// A rotation of the model by the mouse, from press to release. Window points are in pixels, y
/// down.
struct TurnDrag {
  glm::vec2 press{0.0F, 0.0F};                  ///< where it began
  glm::vec2 current{0.0F, 0.0F};                ///< where the mouse is
  glm::quat base = glm::identity<glm::quat>();  ///< the model's rotation when it began
  bool rotating = false;                        ///< between press and release
};

/// The eye is fixed on the z axis and looks at the origin. The model is rotated and panned, not the
/// eye.
struct Camera {
  float distance = 3.0F;             ///< of the eye from the origin; may pass through zero
  float zoomStep = 0.1F;             ///< by how much the next zoom step changes `distance`
  glm::vec2 zoomAnchor{0.0F, 0.0F};  ///< pan per unit of distance, toward the cursor
  glm::vec3 eye{0.0F, 0.0F, 3.0F};
  glm::vec3 target{0.0F, 0.0F, 0.0F};
  glm::vec3 up{0.0F, 1.0F, 0.0F};
  glm::vec2 pan{0.0F, 0.0F};                        ///< pan of the model, model units
  glm::quat rotation = glm::identity<glm::quat>();  ///< rotation of the model
  TurnDrag turn;                                    ///< how `rotation` is being changed
};

/// The matrices of one frame.
struct ViewMatrices {
  glm::mat4 projection{1.0F};
  glm::mat4 view{1.0F};
  glm::mat4 model{1.0F};    ///< scales heights, centres, rotates, pans
  glm::mat4 overlay{1.0F};  ///< the same without the height scale, for pins, grid and profile
  glm::mat3 normal{1.0F};   ///< transposed inverse of the model's 3 × 3 part
  /// Pixels of the picture for each of the window: widths of lines and points.
  float pixelRatio = 1.0F;
};

/// A picking ray in world space.
struct Ray {
  glm::vec3 origin{0.0F};
  glm::vec3 direction{0.0F, 0.0F, -1.0F};  ///< of length 1
  glm::vec3 end{0.0F};                     ///< `kRayLength` from the origin
};

/// Model units per height unit at `zScale`, which counts as 1 when it is not finite.
float heightToModel(float zScale);

/// The vertical offset at which a surface is drawn, in model units. It is 0 unless the heights are
/// far from zero: when their middle, at the automatic scale, is farther from zero than half the
/// surface's larger side, the offset centres them about zero.
float heightLift(const SurfaceLimits& limits, float autoScale, std::size_t gridWidth,
                 std::size_t gridHeight, float zScale);

/// The matrices for a window of `width` × `height` pixels and a grid of `gridWidth` × `gridHeight`
/// points. Heights are exaggerated by `zScale` and offset by `lift`.
ViewMatrices viewMatrices(const Camera& camera, int width, int height, std::size_t gridWidth,
                          std::size_t gridHeight, float zScale, float lift = 0.0F);

/// Arcball: the point of the unit sphere at window point (x, y) of a `width` × `height` window.
/// Outside the sphere it is the nearest point of the sphere's outline.
glm::vec3 arcballPoint(int width, int height, float x, float y);

/// The rotation from direction `from` to direction `to`. Neither may have length zero. Nearly
/// opposite directions give half a turn about an axis perpendicular to `from`.
glm::quat rotationBetween(const glm::vec3& from, const glm::vec3& to);

/// Begins a rotation at a window point.
void pressTurn(Camera& camera, glm::vec2 point);
/// Rotates the model as the mouse moves to `point` of a `width` × `height` window. Does nothing
/// without a press before.
void dragTurn(Camera& camera, int width, int height, glm::vec2 point);
/// Ends a rotation: the model stays as it is.
void releaseTurn(Camera& camera);

enum class Zoom { kOut, kIn };

/// Moves the eye by one step. The step grows by 3 % when zooming out and shrinks as much when
/// zooming in. Also pans so that the zoom follows the point under the cursor.
void zoom(Camera& camera, Zoom direction);
/// One step for the mouse wheel: out for an amount of 1 or more, else in.
void zoomByWheel(Camera& camera, int amount);
/// One step for a two-button drag of `dy` pixels: down zooms out, up zooms in, 0 does nothing.
void zoomByDrag(Camera& camera, float dy);
/// Makes zooming follow the cursor, through which `ray` passes.
void anchorZoom(Camera& camera, const Ray& ray);

/// Pans the model by a mouse motion in pixels. A pixel is a thousandth of a model unit.
void panByPixels(Camera& camera, glm::vec2 motion);

/// Projects a point with `matrix` (projection × view, or × model as well): x and y in pixels of a
/// `width` × `height` window, y down, and the depth from −1 (near) to 1 (far). Undefined for a
/// point beside or behind the eye.
glm::vec3 project(const glm::dmat4& matrix, int width, int height, const glm::vec3& point);
/// The inverse of `project`.
glm::vec3 unproject(const glm::dmat4& matrix, int width, int height, const glm::vec3& window);

/// The ray from the near plane through window point (x, y), in a frame with `matrices`.
Ray pickRay(const ViewMatrices& matrices, int width, int height, float x, float y);

}  // namespace morvane
