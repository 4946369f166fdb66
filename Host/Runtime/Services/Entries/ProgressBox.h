#pragma once

/// Hides the box that `dyn_ShowProgressBox` shows, where it stands.
void hideProgressBox();
