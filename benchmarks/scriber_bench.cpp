// What drawing through the facade costs in terms of the better of raw QPainter and Cairo, which paint the
// same picture on the same thread beside it. Pictures are compared too, so that no figure is won by drawing
// less.
#include "scriber/Painting.h"

#include <moxui/platform/Application.h>

#include <cstdlib>

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  int qtArguments = 1;
  // Fonts need one; it also provides what Qt asks of the environment.
  auto const application = moxui::platform::Application::Create(qtArguments, argv);
  bench::Figures figures(argc, argv);
  bench::scriber::MeasureStrokes(figures);
  bench::scriber::MeasureDials(figures);
  bench::scriber::MeasureBlits(figures);
  bench::scriber::MeasureLinesAndRectangles(figures);
  bench::scriber::MeasureTexts(figures);
  return figures.Result();
}
