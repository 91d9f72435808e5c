#include "geometry/camera.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/gtc/matrix_transform.hpp>

#include "surface/mesh.h"

namespace morvane {
namespace {

constexpr float kFar = 100.0F;
constexpr float kZoomGrowth = 1.03F;
constexpr float kPixelsPerUnit = 1000.0F;
constexpr float kNearlyOpposite = -0.999F;  // cosine
constexpr float kNoAxis = 0.01F;            // squared length of a cross product too short to use

double side(int pixels) { return std::max(pixels, 1); }

glm::dvec3 backFromWindow(const glm::dmat4& inverse, int width, int height,
                          const glm::dvec3& window) {
  const glm::dvec4 device(2.0 * window.x / side(width) - 1.0, 1.0 - 2.0 * window.y / side(height),
                          window.z, 1.0);
  const glm::dvec4 point = inverse * device;
  return glm::dvec3(point) / point.w;
}

}  // namespace

float heightToModel(float zScale) {
  return (std::isfinite(zScale) ? zScale : 1.0F) * kHeightToModel;
}

float heightLift(const SurfaceLimits& limits, float autoScale, std::size_t gridWidth,
                 std::size_t gridHeight, float zScale) {
  const float middle = limits.zMin / 2 + limits.zMax / 2;
  const float side = static_cast<float>(std::max(gridWidth, gridHeight)) / kPointsPerUnit;
  // Uses the automatic scale, so that the slider does not make the surface jump.
  const bool isFar = std::abs(middle * heightToModel(autoScale)) > side / 2;
  return isFar ? -middle * heightToModel(zScale) : 0.0F;
}

ViewMatrices viewMatrices(const Camera& camera, int width, int height, std::size_t gridWidth,
                          std::size_t gridHeight, float zScale, float lift) {
  ViewMatrices matrices;
  const auto aspect = static_cast<float>(side(width) / side(height));
  matrices.projection = glm::perspective(glm::radians(kFieldOfView), aspect, kNearPlane, kFar);
  // Zooming may move the eye onto its target, which would leave no view direction.
  const glm::vec3 sight = camera.target - camera.eye;
  const bool lost = glm::dot(sight, sight) == 0.0F;
  const glm::vec3 target = lost ? camera.eye - glm::vec3(0.0F, 0.0F, 1.0F) : camera.target;
  matrices.view = glm::lookAt(camera.eye, target, camera.up);

  const glm::mat4 turn = glm::mat4_cast(camera.rotation);
  const glm::mat4 pan = glm::translate(glm::mat4(1.0F), glm::vec3(camera.pan, 0.0F));
  const glm::vec3 centre(static_cast<float>(gridWidth) / kPointsPerUnit / 2.0F,
                         static_cast<float>(gridHeight) / kPointsPerUnit / 2.0F, 0.0F);
  const float toModel = heightToModel(zScale);
  matrices.overlay = pan * turn * glm::translate(glm::mat4(1.0F), -centre);
  const glm::mat4 lifted = glm::translate(matrices.overlay, glm::vec3(0.0F, 0.0F, lift));
  matrices.model = glm::scale(lifted, glm::vec3(1.0F, 1.0F, toModel));
  matrices.normal = glm::mat3(turn);
  if (toModel != 0.0F) matrices.normal[2] /= toModel;
  return matrices;
}

glm::vec3 arcballPoint(int width, int height, float x, float y) {
  const double px = x / side(width) * 2.0 - 1.0;
  const double py = y / side(height) * 2.0 - 1.0;
  const double squared = px * px + py * py;
  if (squared <= 1.0) return {px, -py, std::sqrt(1.0 - squared)};
  return glm::normalize(glm::dvec3(px, -py, 0.0));
}

glm::quat rotationBetween(const glm::vec3& from, const glm::vec3& to) {
  const glm::vec3 a = glm::normalize(from);
  const glm::vec3 b = glm::normalize(to);
  const float cosine = glm::dot(a, b);
  if (cosine < kNearlyOpposite) {
    glm::vec3 axis = glm::cross(glm::vec3(0.0F, 0.0F, 1.0F), a);
    if (glm::dot(axis, axis) < kNoAxis) axis = glm::cross(glm::vec3(1.0F, 0.0F, 0.0F), a);
    return {0.0F, glm::normalize(axis)};
  }
  const float s = std::sqrt((1.0F + cosine) * 2.0F);
  return {s * 0.5F, glm::cross(a, b) / s};
}

void pressTurn(Camera& camera, glm::vec2 point) {
  camera.turn = {point, point, camera.rotation, true};
}

void dragTurn(Camera& camera, int width, int height, glm::vec2 point) {
  TurnDrag& turn = camera.turn;
  turn.current = point;
  if (!turn.rotating) return;
  // Both ends are mapped again, as the window may have been resized since the press.
  const glm::vec3 start = arcballPoint(width, height, turn.press.x, turn.press.y);
  const glm::vec3 now = arcballPoint(width, height, turn.current.x, turn.current.y);
  // A product of many rotations slowly drifts away from unit length.
  camera.rotation = glm::normalize(rotationBetween(start, now) * turn.base);
}

void releaseTurn(Camera& camera) {
  camera.turn.rotating = false;
  camera.turn.base = camera.rotation;
}

void zoom(Camera& camera, Zoom direction) {
  const float before = camera.distance;
  if (direction == Zoom::kOut) {
    camera.distance += camera.zoomStep;
    camera.zoomStep *= kZoomGrowth;
  } else {
    camera.distance -= camera.zoomStep;
    camera.zoomStep /= kZoomGrowth;
  }
  camera.eye = {0.0F, 0.0F, camera.distance};
  camera.pan += camera.zoomAnchor * (camera.distance - before);
}

void zoomByWheel(Camera& camera, int amount) { zoom(camera, amount >= 1 ? Zoom::kOut : Zoom::kIn); }

void zoomByDrag(Camera& camera, float dy) {
  if (dy != 0.0F) zoom(camera, dy > 0.0F ? Zoom::kOut : Zoom::kIn);
}

void anchorZoom(Camera& camera, const Ray& ray) { camera.zoomAnchor = glm::vec2(ray.direction); }

void panByPixels(Camera& camera, glm::vec2 motion) {
  camera.pan += glm::vec2(motion.x, -motion.y) / kPixelsPerUnit;
}

glm::vec3 project(const glm::dmat4& matrix, int width, int height, const glm::vec3& point) {
  const glm::dvec4 clip = matrix * glm::dvec4(glm::dvec3(point), 1.0);
  const glm::dvec3 device = glm::dvec3(clip) / clip.w;
  return {(device.x + 1.0) / 2.0 * side(width), (1.0 - device.y) / 2.0 * side(height), device.z};
}

glm::vec3 unproject(const glm::dmat4& matrix, int width, int height, const glm::vec3& window) {
  return backFromWindow(glm::inverse(matrix), width, height, window);
}

Ray pickRay(const ViewMatrices& matrices, int width, int height, float x, float y) {
  const glm::dmat4 back = glm::inverse(glm::dmat4(matrices.projection) * glm::dmat4(matrices.view));
  // Converted to float only at the end: the two points are close together and the surface may be
  // far away.
  const glm::dvec3 first = backFromWindow(back, width, height, {x, y, -1.0});
  const glm::dvec3 second = backFromWindow(back, width, height, {x, y, 0.0});
  const glm::dvec3 direction = glm::normalize(second - first);
  return {first, direction, first + direction * double{kRayLength}};
}

}  // namespace morvane
