// A process that does nothing: what starting one takes.

int main() {}
