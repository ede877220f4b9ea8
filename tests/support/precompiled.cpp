// Precompiled headers need a target that they are compiled for. This is its only source.
