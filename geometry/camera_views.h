// Named views of a surface, and views that show all of it.
#pragma once

#include <glm/gtc/quaternion.hpp>

#include "geometry/camera.h"
#include "geometry/surface_hit.h"

namespace morvane {

/// From where a surface is seen. Except from the top, its z axis points up in the picture.
enum class ViewDirection { kTop, kFront, kSide, kIsometric };

/// The rotation of the model for a view. From the front x runs to the right, from the side y.
glm::quat rotationOf(ViewDirection direction);

/// Zooms and pans so that the surface, rotated as `camera` is, is as large as possible in a picture
/// of `width` × `height`. With `roomForKey`, room is left for the colour key and the file's name.
/// No point comes nearer to the eye than what is drawn.
void fit(Camera& camera, const DrawnHeights& heights, int width, int height,
         bool roomForKey = true);

/// What takes back the last change of a camera.
class CameraUndo {
 public:
  /// Remembers `before` if `now` shows something else.
  void keep(const Camera& before, const Camera& now);
  /// Exchanges `camera` with what it was before the last change, so that a second call repeats it.
  void exchange(Camera& camera);

 private:
  Camera before_;
};

}  // namespace morvane
