#pragma once
// The click of every menu button.
void PlayClick();
