// The precompiled headers need a file to be compiled with.
