#pragma once
// The floors of the screens: one small picture repeated over the whole screen.
class Picture;

// Repeats the picture over the whole 640 x 480 screen from its top-left corner; an empty
// picture leaves the screen black.
void TilePicture(Picture& picture);
