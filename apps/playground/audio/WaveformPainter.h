#pragma once

#include "audio/LevelOverlay.h"
#include "audio/WaveformDrawPool.h"
#include "audio/WaveformFeed.h"
#include "audio/WaveformPicture.h"

#include <moxmediaui/WaveformDraw.h>
#include <moxui/geometry/RectT.h>

#include <functional>
#include <memory>

namespace moxui::scriber {
class Scriber;
}

namespace playground {

class AudioSession;
class Viewport;

// Paints what a session shows of its sound: waveform, grid, RMS, clip marks and the veil over what hasn't
// been read, a column to each device pixel. Pictures are kept from one frame to the next.
class WaveformPainter {
 public:
  // `arrived` is called on the main thread when there is something else to paint.
  WaveformPainter(AudioSession const& session, std::function<void()> arrived);
  ~WaveformPainter();

  // Draws the waveform into `own`, whose left top is the origin, as far as the clip reaches.
  void Draw(moxui::scriber::Scriber& scriber, moxui::RectT<float> const& own);

  // What the picture is drawn from in a view.
  std::shared_ptr<WaveformFeed::Data> DataFor(Viewport const& view);
  WaveformFeed::Levels const& LevelsFor(Viewport const& view);
  // Waits for samples that are still being read.
  void Settle() { mFeed.Settle(); }
  moxmediaui::WaveformDraw& Wave() { return mDraw; }
  WaveformPicture const& Picture() const { return mPicture; }

 private:
  void PrepareDraw(Viewport const& view, int rows, float scale);
  // Columns of a picture that is kept; false when there can be none.
  bool DrawPicture(moxui::scriber::Scriber& scriber, Viewport const& view, int rows, float scale);
  // A column to each logical pixel, without a picture and without RMS.
  void DrawInPlace(moxui::scriber::Scriber& scriber, moxui::RectT<float> const& own, Viewport view);
  // Does once what all pieces would do again: fades, and works out what curves have in common.
  void PrepareForPieces(DrawnWaveform& drawn);
  // How the picture of it is cut, so that several threads paint it.
  static WaveformPicture::Cut CutOf(DrawnWaveform const& drawn);
  // On several threads at once.
  void PaintPiece(WaveformPicture::Piece const& piece, DrawnWaveform const& drawn);
  DrawnWaveform Gather(Viewport const& view, int rows, float scale);

  AudioSession const& mSession;
  moxmediaui::WaveformDraw mDraw;
  WaveformFeed mFeed;
  WaveformPicture mPicture;
  WaveformDrawPool mDraws;
};

}  // namespace playground
