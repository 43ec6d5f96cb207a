/** Numbers as people read them. */

/** With so many digits that what rounding left behind does not show. */
export const tidy = value => String(Number.isFinite(value) ? Number(value.toPrecision(12)) : value);

/**
 * All digits that tell a number from its neighbors, if `tidy` leaves some out; or else an empty
 * text.
 */
export const exactly = value => tidy(value) === String(value) ? "" : String(value);

const raised = {
  "-": "⁻",
  0: "⁰",
  1: "¹",
  2: "²",
  3: "³",
  4: "⁴",
  5: "⁵",
  6: "⁶",
  7: "⁷",
  8: "⁸",
  9: "⁹"
};

/** "m³" of "m" and 3. */
export const power = (text, exponent) => exponent === 1 ?
    text :
    text + [...String(exponent)].map(digit => raised[digit] ?? digit).join("");
