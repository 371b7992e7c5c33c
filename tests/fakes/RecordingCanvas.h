// A canvas that writes each call as a line of text, for golden comparisons; its letters all have one width,
// so that layouts are the same on every machine.
#pragma once

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/Canvas.h"

namespace plinth {

// A picture of a size and a name that appears in the recording.
class FakeImage : public Image {
 public:
  explicit FakeImage(SizePx size, std::string name = "image") : name(std::move(name)), size_(size) {}
  SizePx size() const override { return size_; }
  std::string name;

 private:
  SizePx size_;
};

// Takes bytes of the form "width x height name", for example "20x10 logo".
class FakeImageDecoder : public ImageDecoder {
 public:
  std::shared_ptr<Image> decode(const Bytes& bytes) override {
    const std::string text(bytes.begin(), bytes.end());
    SizePx size;
    int used = 0;
    if (std::sscanf(text.c_str(), "%dx%d %n", &size.width, &size.height, &used) != 2) return nullptr;
    return std::make_shared<FakeImage>(size, text.substr(std::min<std::size_t>(used, text.size())));
  }
};

class RecordingCanvas : public Canvas {
 public:
  void line(PointPx from, PointPx to, const Pen& pen) override {
    add("line " + point(from) + " " + point(to) + " " + of(pen));
  }
  void box(const RectPx& rect, const Pen& pen, const Brush& brush, int radius = 0) override {
    add("box " + of(rect) + " " + of(pen) + " " + of(brush) +
        (radius ? " radius " + std::to_string(radius) : ""));
  }
  void ellipse(const RectPx& rect, const Pen& pen, const Brush& brush) override {
    add("ellipse " + of(rect) + " " + of(pen) + " " + of(brush));
  }
  void text(const RectPx& rect, std::string_view text, const FontSpec& font, std::int32_t color,
            TextAlign align = TextAlign::left, bool wrap = false, bool middle = false) override {
    static const char* const kAlign[] = {"left", "right", "center"};
    add("text " + of(rect) + " \"" + escaped(text) + "\" " + of(font) + " " + of(color) + " " +
        kAlign[static_cast<int>(align)] + (wrap ? " wrap" : "") + (middle ? " middle" : ""));
  }
  // Every byte 0.55 of the font's height in pixels wide, lines 1.2 heights apart.
  SizePx measure(std::string_view text, const FontSpec& font) override {
    const int height = static_cast<int>(font.points * 96 / 72 + 0.5f);
    std::size_t longest = 0, lines = 1, here = 0;
    for (const char c : text) {
      if (c == '\n')
        ++lines, here = 0;
      else if (c != '\r')
        longest = std::max(longest, ++here);
    }
    return {static_cast<int>(longest) * std::max(1, height * 55 / 100),
            static_cast<int>(lines) * (height * 12 / 10)};
  }
  void picture(const RectPx& rect, const Image& image) override {
    const auto* fake = dynamic_cast<const FakeImage*>(&image);
    add("picture " + of(rect) + " " + (fake ? fake->name : "image"));
  }
  void pushClip(const RectPx& rect) override { add("clip " + of(rect)); }
  void popClip() override { add("unclip"); }

  // All calls, a line each.
  std::string recording() const {
    std::string all;
    for (const std::string& call : calls) all += call + "\n";
    return all;
  }

  std::vector<std::string> calls;

 private:
  void add(std::string call) { calls.push_back(std::move(call)); }
  static std::string point(PointPx p) { return std::to_string(p.x) + "," + std::to_string(p.y); }
  static std::string of(const RectPx& r) {
    return point({r.left, r.top}) + " " + std::to_string(r.width) + "x" + std::to_string(r.height);
  }
  static std::string of(std::int32_t color) {  // as people read colours: red first
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", static_cast<unsigned>(color & 255),
                  static_cast<unsigned>(color >> 8 & 255), static_cast<unsigned>(color >> 16 & 255));
    return text;
  }
  static std::string of(const Pen& pen) {
    static const char* const kStyle[] = {"none", "solid", "dash", "dot", "dashdot", "dashdotdot"};
    if (pen.style == LineStyle::none) return "pen none";
    return std::string("pen ") + kStyle[static_cast<int>(pen.style)] + " " + std::to_string(pen.width) + " " +
           of(pen.color);
  }
  static std::string of(const Brush& brush) {
    static const char* const kStyle[] = {"none",   "solid",    "horizontal", "vertical",
                                         "upward", "downward", "cross",      "diagonalcross"};
    if (brush.style == FillStyle::none) return "brush none";
    return std::string("brush ") + kStyle[static_cast<int>(brush.style)] + " " + of(brush.color) +
           (brush.opaqueBack ? " on " + of(brush.backColor) : "");
  }
  static std::string of(const FontSpec& font) {
    char points[32];
    std::snprintf(points, sizeof points, " %g", static_cast<double>(font.points));
    return font.name + points + (font.bold ? " bold" : "") + (font.italic ? " italic" : "") +
           (font.underline ? " underline" : "") +
           (font.charSet ? " charset " + std::to_string(font.charSet) : "");
  }
  static std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
      if (c == '\r')
        out += "\\r";
      else if (c == '\n')
        out += "\\n";
      else if (c == '"')
        out += "\\\"";
      else
        out += c;
    }
    return out;
  }
};

}  // namespace plinth
