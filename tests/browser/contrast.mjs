// Whether texts can be read on what lies below them.

/**
 * The texts of the page whose contrast is below 4.5 to 1, the least that readers with weak sight need, each as
 * "text: contrast". Colours that let the ground shine through are mixed with it; pictures in the background are left out.
 */
export const lowContrasts = (page) =>
  page.evaluate(() => {
    const canvas = new OffscreenCanvas(1, 1).getContext("2d", { willReadFrequently: true });
    const paint = (colours) => {
      canvas.clearRect(0, 0, 1, 1);
      for (const colour of colours) {
        canvas.fillStyle = colour;
        canvas.fillRect(0, 0, 1, 1);
      }
      return [...canvas.getImageData(0, 0, 1, 1).data].slice(0, 3);
    };
    const luminance = (parts) => {
      const [red, green, blue] = parts.map((part) =>
        part / 255 <= 0.04045 ? part / 255 / 12.92 : ((part / 255 + 0.055) / 1.055) ** 2.4,
      );
      return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
    };
    const grounds = (element) =>
      element ? [...grounds(element.parentElement), getComputedStyle(element).backgroundColor] : [];
    const contrast = (element) => {
      const ground = grounds(element);
      const [dark, light] = [paint(ground), paint([...ground, getComputedStyle(element).color])]
        .map(luminance)
        .sort((one, other) => one - other);
      return (light + 0.05) / (dark + 0.05);
    };

    const found = new Set();
    const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    for (let text = walker.nextNode(); text; text = walker.nextNode()) {
      const shown = text.data.trim();
      if (shown === "" || !text.parentElement.checkVisibility()) continue;
      const value = contrast(text.parentElement);
      if (value < 4.5) found.add(`${shown.slice(0, 30)}: ${value.toFixed(2)}`);
    }
    return [...found];
  });
