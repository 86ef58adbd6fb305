#include "Display.h"

#include "Scenario.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace airtraffic {

using rti1516e::Integer64;

namespace {

std::chrono::milliseconds const pause{30}; // between the frames of a moving picture
Integer64 const stillInterval = 300;       // seconds of logical time between still ones
wchar_t const* const clearTerminal = L"\x1b[H\x1b[J";

// Rows of characters that stand for the airspace, north up. A frame fits a terminal of 80 by 24 characters.
class Canvas
{
public:
   static constexpr std::size_t columns = 48;
   static constexpr std::size_t rows = 20;

   std::wstring const& row(std::size_t index) const { return _rows[index]; }

   void outline(Area const& area, wchar_t sign)
   {
      drawSouthward(area.west, area, sign);
      drawSouthward(area.east - 1, area, sign);
      for (unsigned long east = area.west; east < area.east; ++east) {
         at(east, area.south) = sign;
         at(east, area.north - 1) = sign;
      }
   }

   void drawSouthward(unsigned long east, Area const& within, wchar_t sign)
   {
      for (unsigned long north = within.south; north < within.north; ++north) {
         at(east, north) = sign;
      }
   }

   void write(Position const& position, std::wstring const& text)
   {
      std::wstring& row = _rows[rowOf(position.northing)];
      std::size_t const column = columnOf(position.easting);
      std::size_t const length = std::min(text.size(), columns - column);
      row.replace(column, length, text, 0, length);
   }

private:
   static std::size_t columnOf(double easting)
   {
      return static_cast<std::size_t>(easting * columns / static_cast<double>(airspace.east));
   }

   static std::size_t rowOf(double northing)
   {
      return rows - 1 - static_cast<std::size_t>(northing * rows / static_cast<double>(airspace.north));
   }

   wchar_t& at(unsigned long east, unsigned long north)
   {
      return _rows[rowOf(static_cast<double>(north))][columnOf(static_cast<double>(east))];
   }

   std::vector<std::wstring> _rows{rows, std::wstring(columns, L' ')};
};

Canvas draw(std::vector<Track> const& tracks)
{
   Canvas canvas;
   canvas.outline(radarCoverage, L'.');
   for (Sector const& each : sectors()) {
      if (each.area.west != airspace.west) {
         canvas.drawSouthward(each.area.west, airspace, L':');
      }
   }
   for (Track const& each : tracks) {
      canvas.write(each.position, L'*' + each.callsign);
   }
   return canvas;
}

std::wstring clock(Integer64 seconds)
{
   std::wostringstream text;
   text << std::setfill(L'0') << std::setw(2) << seconds / 60 << L':' << std::setw(2) << seconds % 60;
   return text.str();
}

// What controllers note on a strip of paper.
std::wstring strip(Track const& track)
{
   std::wostringstream text;
   text << L"  " << std::left << std::setw(8) << track.callsign << L"FL" << std::setw(5)
        << track.position.flightLevel << track.controller;
   return text.str();
}

} // namespace

Display::Display() : _moves(isatty(STDOUT_FILENO) != 0) {}

void Display::show(Integer64 time, std::vector<Track> const& tracks, std::vector<Member> const& members) const
{
   if (!_moves && (time == 0 || time % stillInterval != 0)) {
      return;
   }
   Canvas const canvas = draw(tracks);
   std::wstring const edge = L'+' + std::wstring(Canvas::columns, L'-') + L"+\n";
   std::wostringstream frame; // written at once, so that a moving picture does not flicker
   frame << (_moves ? clearTerminal : L"\n") << L"  " << clock(time) << L"  on the radar: " << tracks.size()
         << L'\n' << edge;
   for (std::size_t i = 0; i < Canvas::rows; ++i) {
      frame << L'|' << canvas.row(i) << L'|' << (i < tracks.size() ? strip(tracks[i]) : L"") << L'\n';
   }
   frame << edge;
   for (Member const& each : members) {
      frame << L' ' << each.name << L' ' << clock(each.time);
   }
   frame << L'\n';
   std::wcout << frame.str() << std::flush;
   if (_moves) {
      std::this_thread::sleep_for(pause);
   }
}

} // namespace airtraffic
