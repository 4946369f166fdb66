#pragma once

struct CommandLine;

/// Whether the workbench is wanted and there is nothing to show it on.
bool lacksDisplayFor(const CommandLine& line);

/// What has to stand in the environment before the application object is made: the platform where
/// there is no display, font size and scale of pictures.
void prepareEnvironment(const CommandLine& line);

/// What has to be put right once the application object stands: number format, names.
void prepareApplication();

/// Whether somebody sits at a display and can answer a dialog.
bool hasUser();
