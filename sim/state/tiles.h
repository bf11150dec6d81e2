// The grid of tiles.
#pragma once

namespace vxsim {

// The tiles that a face is built of, numbered from 1 on, row by row.
class Tiles
{
public:
    static constexpr int kSide = 16; // pixels; the last of a row or column may have fewer

    Tiles(int faceWidth, int faceHeight)
        : columns((faceWidth + kSide - 1) / kSide), rows((faceHeight + kSide - 1) / kSide)
    {
    }

    int Count() const { return columns * rows; }
    int Columns() const { return columns; }

    // Of the tile with this address, counted from 0.
    int ColumnOf(int address) const { return (address - 1) % columns; }
    int RowOf(int address) const { return (address - 1) / columns; }

    // Address of the tile with this pixel of the face.
    int At(int x, int y) const { return y / kSide * columns + x / kSide + 1; }

private:
    int columns;
    int rows;
};

} // namespace vxsim
