#include <array>
#include <csetjmp>
#include <cstdio>
#include <string>

// jpeglib.h uses FILE without declaring it.
#include <jpeglib.h>

#include "export/screen_picture.h"

namespace morvane {
namespace {

/// Compresses one image. libjpeg reports errors by longjmp, which skips destructors. So the
/// function that is jumped to has no such locals: everything is a member of this object.
class JpegEncoder {
 public:
  explicit JpegEncoder(Bytes& file) : file_(file) {
    state_.client_data = this;
    state_.err = jpeg_std_error(&errors_);
    errors_.error_exit = [](j_common_ptr state) {
      auto* self = static_cast<JpegEncoder*>(state->client_data);
      (*state->err->format_message)(state, self->message_.data());
      std::longjmp(self->wayOut_, 1);
    };
    destination_.init_destination = [](j_compress_ptr state) { of(state).startPiece(); };
    destination_.empty_output_buffer = [](j_compress_ptr state) -> boolean {
      // libjpeg calls this only when the buffer is full; its counters need not say so.
      of(state).writePiece(kPieceBytes);
      return TRUE;
    };
    destination_.term_destination = [](j_compress_ptr state) {
      of(state).writePiece(kPieceBytes - of(state).destination_.free_in_buffer);
    };
  }
  ~JpegEncoder() { jpeg_destroy_compress(&state_); }
  JpegEncoder(const JpegEncoder&) = delete;
  JpegEncoder& operator=(const JpegEncoder&) = delete;

  /// False when the image cannot be a JPEG; `message()` then says why.
  bool encode(const RgbImage& image) {
    if (setjmp(wayOut_) != 0) return false;
    jpeg_create_compress(&state_);
    state_.dest = &destination_;
    state_.image_width = static_cast<JDIMENSION>(image.width);
    state_.image_height = static_cast<JDIMENSION>(image.height);
    state_.input_components = 3;
    state_.in_color_space = JCS_RGB;
    jpeg_set_defaults(&state_);
    jpeg_start_compress(&state_, TRUE);
    while (state_.next_scanline < state_.image_height) {
      // libjpeg only reads the rows, but its pointers are not const.
      auto* row = const_cast<JSAMPLE*>(image.row(state_.next_scanline));
      jpeg_write_scanlines(&state_, &row, 1);
    }
    jpeg_finish_compress(&state_);
    return true;
  }

  [[nodiscard]] const char* message() const { return message_.data(); }

 private:
  static constexpr std::size_t kPieceBytes = std::size_t{1} << 16;

  static JpegEncoder& of(j_compress_ptr state) {
    return *static_cast<JpegEncoder*>(state->client_data);
  }

  void startPiece() {
    destination_.next_output_byte = piece_.data();
    destination_.free_in_buffer = piece_.size();
  }

  void writePiece(std::size_t bytes) {
    file_.insert(file_.end(), piece_.begin(), piece_.begin() + static_cast<std::ptrdiff_t>(bytes));
    startPiece();
  }

  Bytes& file_;
  jpeg_compress_struct state_{};
  jpeg_error_mgr errors_{};
  jpeg_destination_mgr destination_{};
  std::array<JOCTET, kPieceBytes> piece_{};
  std::jmp_buf wayOut_{};
  std::array<char, JMSG_LENGTH_MAX> message_{};
};

}  // namespace

std::string encodeJpeg(const RgbImage& image, Bytes& file) {
  file.clear();
  JpegEncoder encoder(file);
  if (encoder.encode(image)) return {};
  file.clear();
  return encoder.message();
}

}  // namespace morvane
