#pragma once

/// The keyboard's moves over items that stand in lines of equal length.
struct IconGrid
{
    enum class Move
    {
        Left,
        Right,
        Up,
        Down,
        PageUp,
        PageDown,
        Home,
        End
    };

    /// The number of items.
    int count = 0;
    /// The items of a line, at least 1.
    int columns = 1;
    /// The lines that a page shows, at least 1.
    int lines = 1;

    /// Where \p move leads from \p item; from -1 to the first item. Left and Right go on over the
    /// ends of lines; Down out of the last full line leads to the last item. -1 without items.
    int Target(Move move, int item) const;

private:
    int Below(int item, int distance) const;
};
