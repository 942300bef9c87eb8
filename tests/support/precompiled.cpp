// Compiles the precompiled header.
int main() { }
