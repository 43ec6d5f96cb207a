/**
 * Keeps the clock of a headless browser from running ahead: with --virtual-time-budget it counts
 * timers as passed at once, while other threads still unpack and compile. Each tick costs real
 * time.
 */
const ticks = setInterval(() => {
  for (let count = 0; count < 5e6; ++count)
    ;
}, 10);

(typeof tested === "undefined" ? started : tested).finally(() => clearInterval(ticks));
