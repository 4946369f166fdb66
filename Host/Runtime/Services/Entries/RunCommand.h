#pragma once

class FunctionTable;

/// The table whose commands modules run, and which has to outlive them; null: there are none.
void setModuleCommands(const FunctionTable* table);
