// The smallest program that can carry the engine's resources.
int main() { return 0; }
