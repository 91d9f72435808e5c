#include "view/glyphs.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_GLYPH_H
#include FT_STROKER_H

#include <algorithm>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/debug_log.h"

namespace morvane {
namespace {

constexpr int kHeightToRim = 6;  // the rim is two pixels of the screen at the size of the labels
constexpr int kBorder = 8;       // texels; as many as a pixel covers in the smallest readable text

struct LibraryRelease {
  void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FaceRelease {
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
struct StrokerRelease {
  void operator()(FT_Stroker stroker) const { FT_Stroker_Done(stroker); }
};
struct OutlineRelease {
  void operator()(FT_Glyph glyph) const { FT_Done_Glyph(glyph); }
};
using Library = std::unique_ptr<std::remove_pointer_t<FT_Library>, LibraryRelease>;
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, FaceRelease>;
using Stroker = std::unique_ptr<std::remove_pointer_t<FT_Stroker>, StrokerRelease>;
using Outline = std::unique_ptr<std::remove_pointer_t<FT_Glyph>, OutlineRelease>;

Library openLibrary() {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) {
    logStream() << "FreeType initiation Failed\n";
    return nullptr;
  }
  return Library(library);
}

Face openFace(const Library& library, const std::string& path) {
  FT_Face face = nullptr;
  if (FT_New_Face(library.get(), path.c_str(), 0, &face) != 0) {
    logStream() << "Error: FreeType failed to load font\n";
    return nullptr;
  }
  return Face(face);
}

/// For rims of `width` texels.
Stroker makeStroker(const Library& library, int width) {
  FT_Stroker stroker = nullptr;
  if (FT_Stroker_New(library.get(), &stroker) != 0) return nullptr;
  FT_Stroker_Set(stroker, FT_Fixed{width} << 6, FT_STROKER_LINECAP_ROUND, FT_STROKER_LINEJOIN_ROUND,
                 0);
  return Stroker(stroker);
}

/// The outline in `slot`, widened by the rim unless `stroker` is null. Null on failure.
Outline outlineOf(FT_GlyphSlot slot, FT_Stroker stroker) {
  FT_Glyph glyph = nullptr;
  if (FT_Get_Glyph(slot, &glyph) != 0) return nullptr;
  const bool failed = stroker && FT_Glyph_StrokeBorder(&glyph, stroker, 0, 1) != 0;
  Outline outline(glyph);
  return failed ? nullptr : std::move(outline);
}

/// The coverage of a glyph in rows of `width` texels.
struct Texels {
  int width;
  int rows;
  std::vector<unsigned char> values;
};

/// A copy of half the size. Width and rows must be even.
Texels halved(const Texels& texels) {
  Texels half = {texels.width / 2, texels.rows / 2, {}};
  const auto at = [&](int row, int column) {
    return texels.values[static_cast<std::size_t>(row * texels.width + column)];
  };
  for (int row = 0; row < texels.rows; row += 2) {
    for (int c = 0; c < texels.width; c += 2) {
      const int sum = at(row, c) + at(row, c + 1) + at(row + 1, c) + at(row + 1, c + 1);
      half.values.push_back(static_cast<unsigned char>((sum + 2) / 4));
    }
  }
  return half;
}

GlTexture makeTexture(const Texels& texels) {
  GlTexture texture = GlTexture::generate();
  glBindTexture(GL_TEXTURE_2D, texture.name());
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RED, texels.width, texels.rows, 0, GL_RED, GL_UNSIGNED_BYTE,
               texels.values.data());
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  return texture;
}

/// `number`, or the next one if it is odd.
int roundedUp(int number) { return number + number % 2; }

GlyphPicture makePicture(Outline outline) {
  GlyphPicture picture;
  FT_Glyph glyph = outline.release();
  const bool failed =
      glyph == nullptr || FT_Glyph_To_Bitmap(&glyph, FT_RENDER_MODE_NORMAL, nullptr, 1) != 0;
  outline.reset(glyph);
  if (failed) return picture;
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-static-cast-downcast): what the call above has made
  const auto* made = reinterpret_cast<const FT_BitmapGlyphRec*>(glyph);
  const FT_Bitmap& bitmap = made->bitmap;
  picture.width = roundedUp(static_cast<int>(bitmap.width)) + 2 * kBorder;
  picture.rows = roundedUp(static_cast<int>(bitmap.rows)) + 2 * kBorder;
  picture.left = made->left - kBorder;
  picture.top = made->top + kBorder;
  Texels texels = {picture.width, picture.rows, {}};
  texels.values.resize(static_cast<std::size_t>(picture.width * picture.rows));
  for (int row = 0; row < static_cast<int>(bitmap.rows); ++row) {
    std::copy_n(bitmap.buffer + std::ptrdiff_t{row} * bitmap.pitch, bitmap.width,
                texels.values.begin() + std::ptrdiff_t{row + kBorder} * picture.width + kBorder);
  }
  picture.textures = {makeTexture(texels), makeTexture(halved(texels))};
  return picture;
}

}  // namespace

struct GlyphMaker::Font {
  Library library = openLibrary();
  Face face;
  Stroker stroker;
};

GlyphMaker::GlyphMaker(const std::string& fontPath, int size) : font_(std::make_unique<Font>()) {
  if (!font_->library) return;
  font_->face = openFace(font_->library, fontPath);
  if (!font_->face) return;
  FT_Set_Pixel_Sizes(font_->face.get(), 0, static_cast<FT_UInt>(size));
  font_->stroker = makeStroker(font_->library, size / kHeightToRim);
}

GlyphMaker::~GlyphMaker() = default;

Glyph GlyphMaker::make(std::size_t code) const {
  Glyph glyph;
  FT_FaceRec* face = font_->face.get();
  if (face == nullptr) return glyph;
  if (FT_Load_Char(face, static_cast<FT_ULong>(code), FT_LOAD_NO_BITMAP) != 0) {
    logStream() << "FreeType unable to load Glyph\n";
    return glyph;
  }
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glyph.advance = face->glyph->advance.x;
  glyph.ink = makePicture(outlineOf(face->glyph, nullptr));
  if (font_->stroker) glyph.rim = makePicture(outlineOf(face->glyph, font_->stroker.get()));
  return glyph;
}

}  // namespace morvane
