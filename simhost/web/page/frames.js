// Dialogs in a page that links to their files: each link of the class `dialog` gets the dialog above
// it, in its own size, and smaller where the page or the paper is too narrow. Without scripts the
// links remain. A plain script, since modules cannot be loaded from a file.
(() => {
  const svg = name => document.createElementNS('http://www.w3.org/2000/svg', name);

  function frameOf(link) {
    const frame = document.createElement('iframe');
    frame.src = link.href;
    frame.title = link.textContent;
    frame.style.cssText = 'display: block; border: 0; width: 100%; height: 100%;';
    const inside = svg('foreignObject');
    inside.append(frame);
    // It is scaled as a picture is, which a frame alone cannot be.
    const picture = svg('svg');
    picture.append(inside);
    picture.style.cssText = 'display: block; max-width: 100%; height: auto; break-inside: avoid;';
    link.before(picture);
    return { frame, inside, picture };
  }

  const shown = [...document.querySelectorAll('a.dialog')].map(frameOf);

  // A dialog tells its size as soon as it knows it.
  window.addEventListener('message', event => {
    const one = shown.find(each => each.frame.contentWindow === event.source);
    const [width, height] = [event.data.width, event.data.height].map(Number);
    if (!one || !(width > 0 && height > 0)) return;
    one.picture.setAttribute('viewBox', `0 0 ${width} ${height}`);
    for (const each of [one.picture, one.inside]) {
      each.setAttribute('width', width);
      each.setAttribute('height', height);
    }
  });
})();
