"""Which small changes tools/mutation_check.py makes to a source, and which places it leaves alone."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

import mutations


class Mutations(unittest.TestCase):
    def changed(self, text):
        """The text in every changed form, in no order."""
        return sorted(mutation.apply(text) for mutation in mutations.mutations(text))

    def becomes(self, text, *changed):
        self.assertEqual(self.changed(text), sorted(changed))

    def stays(self, text):
        self.becomes(text)

    def test_comparisons(self):
        self.becomes("bool x = a == b;", "bool x = a != b;")
        self.becomes("bool x = a < b;", "bool x = a <= b;")
        self.becomes("bool x = a >= b;", "bool x = a > b;")

    def test_arithmetic_and_logic(self):
        self.becomes("int x = a + b;", "int x = a - b;")
        self.becomes("int x = a * b;", "int x = a / b;")
        self.becomes("bool x = a && b;", "bool x = a || b;")
        self.becomes("int x = a << b;", "int x = a >> b;")
        self.becomes("int x = a\n    + b;", "int x = a\n    - b;")

    def test_assignments_and_steps(self):
        self.becomes("{ a += b; }", "{ a -= b; }", "{ ; }")
        self.becomes("{ ++a; }", "{ --a; }", "{ ; }")

    def test_conditions(self):
        self.becomes("bool x = !a;", "bool x = a;")
        self.becomes("bool x = true;", "bool x = false;")
        self.becomes("if (a && !b) {", "if (a || !b) {", "if (a && b) {", "if (!(a && !b)) {")
        self.becomes("while (a(b)) {", "while (!(a(b))) {")
        self.becomes("if (auto a = b(); a) {", "if (auto a = b(); !(a)) {")

    def test_a_condition_is_not_turned_twice(self):
        self.becomes("if (!a) {", "if (a) {")
        self.becomes("if (a == b) {", "if (a != b) {")

    def test_choices(self):
        self.becomes("int x = a ? b : c;", "int x = a || true ? b : c;", "int x = a && false ? b : c;")

    def test_numbers(self):
        self.becomes("int x = 7;", "int x = 8;", "int x = 6;")
        self.becomes("int x = 0x10;", "int x = 17;", "int x = 15;")
        self.becomes("int x = 1'000;", "int x = 1001;", "int x = 999;")
        self.becomes("double x = 0.5;", "double x = 1.5;")

    def test_statements(self):
        self.becomes("{ a.b(c); }", "{ ; }")
        self.becomes("{\n  std::ignore =\n      a->b(c);\n}", "{\n  ;\n}")
        self.becomes("{ a = b; }", "{ ; }")
        self.becomes("{ for (const auto& a : b) c(a); }", "{ for (const auto& a : b) ; }")
        self.becomes("{ if (a == b) return; }", "{ if (a != b) return; }", "{ if (a == b) ; }")
        self.becomes("case kOne: a = b; break;", "case kOne: ; break;", "case kOne: a = b; ;")

    def test_declarations_and_values_stay(self):
        self.stays("{ int a = b; }")
        self.stays("{ return a(b); }")
        self.stays("void Routine(int a);")
        self.stays("using A = B;")

    def test_comments_literals_and_templates_stay(self):
        self.stays("// a == b && 1\n")
        self.stays('Text x = u"a == 1";')
        self.stays("char16_t x = u'+';")
        self.stays("std::optional<A> Read();")
        self.stays("const Text&& x = y;")
        self.stays("#include <array>\n#pragma pack(1)\n")
        self.stays("static_assert(sizeof(a) == 4);")
        self.stays("template <int A = 1> class B;")


if __name__ == "__main__":
    unittest.main()
