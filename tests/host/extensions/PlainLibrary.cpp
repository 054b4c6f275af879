/// A shared library without anything of a plugin.
int plainFunction();
int plainFunction()
{
    return 1;
}
