// The camera of the 3D view as a plain value: where the eye stands, how the model lies, and what
// the mouse does to both.
#pragma once

#include <cstddef>
#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include "surface/surface_limits.h"

namespace morvane {

/// Height units to model units at a z-scale of 1; deliberate, as 1000 grid points span one unit.
inline constexpr float kHeightToModel = 0.000027F;

/// How far a picking ray reaches, far beyond the scene, model units.
inline constexpr float kRayLength = 1000.0F;

/// A turn of the model by the mouse, from press to release. Window points in pixels, y down.
struct TurnDrag {
  glm::vec2 press{0.0F, 0.0F};                  ///< where it began
  glm::vec2 current{0.0F, 0.0F};                ///< where the mouse is
  glm::quat base = glm::identity<glm::quat>();  ///< the model's turn when it began
  bool rotating = false;                        ///< between press and release
};

/// A fixed eye on the z axis looks at the origin; the model is turned and shifted, not the eye.
struct Camera {
  float distance = 3.0F;             ///< of the eye from the origin; may pass through zero
  float zoomStep = 0.1F;             ///< what the next zoom changes `distance` by
  glm::vec2 zoomAnchor{0.0F, 0.0F};  ///< pan per unit of distance, toward the cursor
  glm::vec3 eye{0.0F, 0.0F, 3.0F};
  glm::vec3 target{0.0F, 0.0F, 0.0F};
  glm::vec3 up{0.0F, 1.0F, 0.0F};
  glm::vec2 pan{0.0F, 0.0F};                        ///< shift of the model, model units
  glm::quat rotation = glm::identity<glm::quat>();  ///< turn of the model
  TurnDrag turn;                                    ///< how `rotation` is being changed
};

/// The matrices of one frame.
struct ViewMatrices {
  glm::mat4 projection{1.0F};
  glm::mat4 view{1.0F};
  glm::mat4 model{1.0F};    ///< scales heights, centres, turns, pans
  glm::mat4 overlay{1.0F};  ///< the same without the height scale, for pins, grid and profile
  glm::mat3 normal{1.0F};   ///< transposed inverse of the model's 3 × 3 part
};

/// A line of sight in world space.
struct Ray {
  glm::vec3 origin{0.0F};
  glm::vec3 direction{0.0F, 0.0F, -1.0F};  ///< of length 1
  glm::vec3 end{0.0F};                     ///< `kRayLength` from the origin
};

/// Height units to model units at `zScale`, which counts as 1 when it is not finite.
float heightToModel(float zScale);

/// How much higher than at its heights a surface is drawn, in model units: 0, but for heights so
/// far from zero that their middle, at the automatic scale, is farther from it than half the
/// surface's larger side; those are drawn about zero.
float heightLift(const SurfaceLimits& limits, float autoScale, std::size_t gridWidth,
                 std::size_t gridHeight, float zScale);

/// The matrices for a window of `width` × `height` pixels and a grid of `gridWidth` × `gridHeight`
/// points whose heights are exaggerated by `zScale` and drawn higher by `lift`.
ViewMatrices viewMatrices(const Camera& camera, int width, int height, std::size_t gridWidth,
                          std::size_t gridHeight, float zScale, float lift = 0.0F);

/// The point of the unit sphere in front of window point (x, y) of a `width` × `height` window; its
/// rim, where the window point lies outside the sphere.
glm::vec3 arcballPoint(int width, int height, float x, float y);

/// The rotation that carries direction `from` to direction `to`, neither of length zero. Nearly
/// opposite ones give half a turn about an axis square to `from`.
glm::quat rotationBetween(const glm::vec3& from, const glm::vec3& to);

/// Begins a turn at a window point.
void pressTurn(Camera& camera, glm::vec2 point);
/// Turns the model as the mouse goes to `point` of a `width` × `height` window; nothing without a
/// press before.
void dragTurn(Camera& camera, int width, int height, glm::vec2 point);
/// Ends a turn: the rotation stays.
void releaseTurn(Camera& camera);

enum class Zoom { kOut, kIn };

/// Moves the eye by one step, which grows by 3 % going out and shrinks as much going in, and pans
/// so that the zoom follows the point under the cursor.
void zoom(Camera& camera, Zoom direction);
/// One step for a turn of the mouse wheel: out from an amount of 1, else in.
void zoomByWheel(Camera& camera, int amount);
/// One step for a two-button drag of `dy` pixels: out going down, in going up, none at 0.
void zoomByDrag(Camera& camera, float dy);
/// Makes zooming follow the cursor that `ray` goes through.
void anchorZoom(Camera& camera, const Ray& ray);

/// Shifts the model by a mouse motion in pixels, a thousandth of a model unit each.
void panByPixels(Camera& camera, glm::vec2 motion);

/// Where `matrix` (projection × view, or × model as well) puts a point: x and y in pixels of a
/// `width` × `height` window, y down, and the depth from −1 (near) to 1 (far). Without meaning for
/// a point beside or behind the eye.
glm::vec3 project(const glm::dmat4& matrix, int width, int height, const glm::vec3& point);
/// The point that `project` puts at `window`.
glm::vec3 unproject(const glm::dmat4& matrix, int width, int height, const glm::vec3& window);

/// The ray of the frame `matrices` from the near plane through window point (x, y).
Ray pickRay(const ViewMatrices& matrices, int width, int height, float x, float y);

}  // namespace morvane
