// The scope of each token by the rules of the language: docs/language.md.
import assert from "node:assert/strict";
import test from "node:test";

import { highlight, manifest } from "./highlight.mjs";

// Each piece as "text innermost-scope", without the closing ".orvil".
async function innermost(text) {
  const pieces = await highlight(text);
  return pieces
    .filter((piece) => piece.text !== "")
    .map((piece) => `${piece.text.trim()} ${(piece.scopes.at(-1) ?? "none").replace(/\.orvil$/, "")}`);
}

async function expectPieces(text, expected) {
  assert.deepEqual(await innermost(text), expected);
}

// The scope of a value that stands in an assignment.
async function scopeOfValue(value) {
  const pieces = await innermost(`x = ${value} ;`);
  assert.equal(pieces.length, 4, `${value} is one piece: ${pieces}`);
  return pieces[2].slice(pieces[2].lastIndexOf(" ") + 1);
}

const kinds = {
  "constant.numeric.decimal": ["0", "-12", "+5", "640"],
  "constant.numeric.hexadecimal": ["0x1F", "0X1f", "0x", "ff", "007", "1e5", "CAFE", "3D", "00"],
  "constant.numeric.double": ["1.5", ".5", "-2.", "1.0e-3", "1e+5", "-007", "+00", "1.2.3", "1.e", "5e+"],
  "constant.other.symbol": ["View", "x-1", "0x1G", "-ff", "2nd", "page.1-left", "50%", "on", "e+", "-.", "5-e"],
  "constant.language.boolean": ["On", "Off"],
  "punctuation.separator": [",", ":", "(", ")", "*", "/", "[", "]", "{", "}", "=", "+", "-", "."],
};
for (const [kind, values] of Object.entries(kinds)) {
  test(`values are ${kind}`, async () => {
    for (const value of values) {
      assert.equal(await scopeOfValue(value), kind, value);
    }
  });
}

test("an assignment is a name, an equals sign, values and a semicolon", () =>
  expectPieces("Width=640;", [
    "Width variable.other.property",
    "= keyword.operator.assignment",
    "640 constant.numeric.decimal",
    "; punctuation.terminator.assignment",
  ]));

test("an assignment takes everything up to its semicolon", () =>
  expectPieces("Range = { 1\n} = On;", [
    "Range variable.other.property",
    "= keyword.operator.assignment",
    "{ punctuation.separator",
    "1 constant.numeric.decimal",
    "} punctuation.separator",
    "= punctuation.separator",
    "On constant.language.boolean",
    "; punctuation.terminator.assignment",
  ]));

test("a block holds entries", () =>
  expectPieces("View { Grid{ 1 } }", [
    "View entity.name.type.block",
    "{ punctuation.section.block.begin",
    "Grid entity.name.type.block",
    "{ punctuation.section.block.begin",
    "1 constant.numeric.decimal",
    "} punctuation.section.block.end",
    "} punctuation.section.block.end",
  ]));

test("a name may stand in a line before", () =>
  expectPieces("View\n{\nx\n= 1;\n}", [
    "View entity.name",
    "{ punctuation.section.block.begin",
    "x entity.name",
    "= keyword.operator.assignment",
    "1 constant.numeric.decimal",
    "; punctuation.terminator.assignment",
    "} punctuation.section.block.end",
  ]));

test("plain values stand between entries", () =>
  expectPieces('1001 "gone" 0.5', [
    "1001 constant.numeric.decimal",
    '" punctuation.definition.string.begin',
    "gone string.quoted.double",
    '" punctuation.definition.string.end',
    "0.5 constant.numeric.double",
  ]));

test("strings end with the quote that opened them, also in a later line", () =>
  expectPieces("'one\ntwo' 1", [
    "' punctuation.definition.string.begin",
    "one string.quoted.single",
    "two string.quoted.single",
    "' punctuation.definition.string.end",
    "1 constant.numeric.decimal",
  ]));

test("comments do not begin in strings", () =>
  expectPieces('"//#/*"', [
    '" punctuation.definition.string.begin',
    "//#/* string.quoted.double",
    '" punctuation.definition.string.end',
  ]));

test("six escapes are known", () =>
  expectPieces(String.raw`"\"\'\\\n\r\t\0\x"`, [
    '" punctuation.definition.string.begin',
    String.raw`\" constant.character.escape`,
    String.raw`\' constant.character.escape`,
    String.raw`\\ constant.character.escape`,
    String.raw`\n constant.character.escape`,
    String.raw`\r constant.character.escape`,
    String.raw`\t constant.character.escape`,
    String.raw`\0 invalid.illegal.escape`,
    String.raw`\x invalid.illegal.escape`,
    '" punctuation.definition.string.end',
  ]));

test("the other quote vanishes inside of a string", () =>
  expectPieces(`"it's" 'a"b'`, [
    '" punctuation.definition.string.begin',
    "it string.quoted.double",
    "' invalid.illegal.quote",
    "s string.quoted.double",
    '" punctuation.definition.string.end',
    "' punctuation.definition.string.begin",
    "a string.quoted.single",
    '" invalid.illegal.quote',
    "b string.quoted.single",
    "' punctuation.definition.string.end",
  ]));

test("the other quote takes over an empty string", () =>
  expectPieces(`'"both" "'one' "'"x"`, [
    `'" punctuation.definition.string.begin`,
    "both string.quoted.double",
    '" punctuation.definition.string.end',
    `"' punctuation.definition.string.begin`,
    "one string.quoted.single",
    "' punctuation.definition.string.end",
    `"'" punctuation.definition.string.begin`,
    "x string.quoted.double",
    '" punctuation.definition.string.end',
  ]));

test("a quote inside of a word is part of it", async () => {
  assert.equal(await scopeOfValue('Pen"No1"'), "constant.other.symbol");
});

test("an escape belongs to a word", async () => {
  assert.equal(await scopeOfValue(String.raw`two\twords`), "constant.other.symbol");
});

test("comments take in the word in front of them", () =>
  expectPieces("x = 5// five\n; y = 6/* six */;", [
    "x variable.other.property",
    "= keyword.operator.assignment",
    "5// five comment.line.double-slash",
    "; punctuation.terminator.assignment",
    "y variable.other.property",
    "= keyword.operator.assignment",
    "6/* comment.block",
    "six comment.block",
    "*/ comment.block",
    "; punctuation.terminator.assignment",
  ]));

test("a comment is not closed by its own star, and does not nest", () =>
  expectPieces("/*/ a /* b\nc */ 1", [
    "/* comment.block",
    "/ a /* b comment.block",
    "c comment.block",
    "*/ comment.block",
    "1 constant.numeric.decimal",
  ]));

test("a number sign begins a preprocessor line", () =>
  expectPieces("#version 2 beta\n#x 1\n5#off ;\n1", [
    "# keyword.control.directive",
    "version keyword.control.directive",
    "2 beta string.unquoted.directive",
    "#x 1 meta.preprocessor",
    "5#off ; meta.preprocessor",
    "1 constant.numeric.decimal",
  ]));

test("a word of the letters a to f names nothing", () =>
  expectPieces("Face { } 3D = 1", [
    "Face invalid.illegal.name",
    "{ invalid.illegal.stray",
    "} invalid.illegal.stray",
    "3D invalid.illegal.name",
    "= invalid.illegal.stray",
    "1 constant.numeric.decimal",
  ]));

test("a name without = or { is marked", () =>
  expectPieces("Height 480", ["Height invalid.illegal.name", "480 constant.numeric.decimal"]));

test("characters that begin nothing are marked", () =>
  expectPieces("; , . }", [
    "; invalid.illegal.stray",
    ", invalid.illegal.stray",
    ". invalid.illegal.stray",
    "} invalid.illegal.stray",
  ]));

test("bytes above 127 are marked outside of strings and comments", () =>
  expectPieces('"ö" // ö\nö\u0080', [
    '" punctuation.definition.string.begin',
    "ö string.quoted.double",
    '" punctuation.definition.string.end',
    "// ö comment.line.double-slash",
    "ö\u0080 invalid.illegal.character",
  ]));

test("fences of Markdown hold the language", async () => {
  const pieces = await highlight("```orvil file=x\nx = 1;\n```\nx", "markdown.orvil.codeblock");
  const found = pieces.map((piece) => [piece.text, piece.scopes.at(-1)]);
  assert.deepEqual(found[3], ["x", "variable.other.property.orvil"]);
  assert.deepEqual(found.at(-1), ["x", undefined]);
});

test("a file that the library wrote is known by its first line", () => {
  const firstLine = new RegExp(manifest.contributes.languages[0].firstLine);
  assert.match("// page.cfg : ", firstLine);
  assert.doesNotMatch("// How the plan is shown.", firstLine);
});
