// qn: the command-line host program. It uses the library as any host does.
int main() { return 0; }
