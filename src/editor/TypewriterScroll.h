#pragma once

// When typewriter scrolling should bring the caret's line to the middle of the view. It
// remembers where the caret was at the last adjustment, so that scrolling that did not move
// the caret leaves the view alone.
class TypewriterScroll
{
public:
    // Beyond this length the line lookup would cost too much on every scroll; it stops.
    static constexpr int LengthLimit = 25000;

    // True when the view should move the caret's line to the middle now.
    bool shouldAdjust(int caret, int textLength, bool selectionEmpty);
    void reset() { m_lastCaret = -1; }
    int lastCaret() const { return m_lastCaret; }

private:
    int m_lastCaret = -1;
};
