package tovu.local.fom;

import hla.rti1516e.exceptions.CouldNotOpenFDD;
import hla.rti1516e.exceptions.CouldNotOpenMIM;
import hla.rti1516e.exceptions.ErrorReadingFDD;
import hla.rti1516e.exceptions.ErrorReadingMIM;
import hla.rti1516e.exceptions.InconsistentFDD;
import hla.rti1516e.exceptions.RTIexception;
import java.io.ByteArrayInputStream;
import java.io.CharConversionException;
import java.io.IOException;
import java.io.InputStream;
import java.io.UnsupportedEncodingException;
import java.net.URI;
import java.net.URISyntaxException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Deque;
import java.util.List;
import java.util.Locale;
import java.util.Set;
import java.util.function.Function;
import java.util.stream.Collectors;
import javax.xml.XMLConstants;
import javax.xml.parsers.ParserConfigurationException;
import javax.xml.parsers.SAXParser;
import javax.xml.parsers.SAXParserFactory;
import org.xml.sax.Attributes;
import org.xml.sax.InputSource;
import org.xml.sax.Locator;
import org.xml.sax.SAXException;
import org.xml.sax.SAXParseException;
import org.xml.sax.ext.Locator2;
import org.xml.sax.helpers.DefaultHandler;

/** Reads FOM modules: from a designator to a tree of elements. Nothing outside the file itself is ever loaded. */
public final class FomReader {
    /** Far deeper than any class tree, and shallow enough for code that recurses over the elements. */
    private static final int MAXIMUM_DEPTH = 500;

    private static final int MISSING_NAMES_SHOWN = 5;

    private final boolean isMim;
    private final String kind;
    private final Function<String, RTIexception> couldNotOpen;
    private final Function<String, RTIexception> couldNotRead;

    private FomReader(boolean isMim, Function<String, RTIexception> couldNotOpen,
            Function<String, RTIexception> couldNotRead) {
        this.isMim = isMim;
        kind = isMim ? "MIM" : "FOM module";
        this.couldNotOpen = couldNotOpen;
        this.couldNotRead = couldNotRead;
    }

    /** A reader of FOM modules: fails with CouldNotOpenFDD and ErrorReadingFDD. */
    public static FomReader ofModules() {
        return new FomReader(false, CouldNotOpenFDD::new, ErrorReadingFDD::new);
    }

    /** A reader of a MIM: fails with CouldNotOpenMIM and ErrorReadingMIM. */
    public static FomReader ofMim() {
        return new FomReader(true, CouldNotOpenMIM::new, ErrorReadingMIM::new);
    }

    /** The MIM that stands in for every federation that names none of its own. */
    public static FomModule standardMim() {
        return StandardMim.MODULE;
    }

    private static final class StandardMim {
        private static final FomModule MODULE = readStandardMim();
    }

    private static FomModule readStandardMim() {
        try (InputStream in = FomReader.class.getResourceAsStream("HLAstandardMIM.xml")) {
            return ofMim().parse("HLAstandardMIM", in);
        } catch (IOException | RTIexception e) {
            throw new IllegalStateException("The built-in MIM cannot be read: " + e.getMessage(), e);
        }
    }

    public List<FomModule> readAll(List<ModuleSource> sources) throws RTIexception {
        List<FomModule> modules = new ArrayList<>();
        for (ModuleSource source : sources) {
            modules.add(read(source));
        }
        return modules;
    }

    public FomModule read(ModuleSource source) throws RTIexception {
        try (InputStream in = new ByteArrayInputStream(load(source))) {
            return parse(source.designator(), in);
        } catch (IOException e) {
            throw new IllegalStateException(e); // from memory there is no such failure
        }
    }

    /** The same with its text, or with why there is none: for who reads it elsewhere. */
    public ModuleSource fetch(ModuleSource source) {
        try {
            return ModuleSource.received(source.designator(), load(source));
        } catch (RTIexception e) {
            return ModuleSource.unreadable(source.designator(), e.getMessage());
        }
    }

    /** The text of the module: as it came, or of the file that a path or a file: URL designates. */
    private byte[] load(ModuleSource source) throws RTIexception {
        String designator = source.designator();
        if (source.failure() != null) {
            throw couldNotOpen.apply(source.failure());
        }
        if (source.text() != null) {
            return source.text();
        }
        Path path = locate(designator);
        if (!Files.exists(path)) {
            throw couldNotOpen.apply(kind + " '" + designator + "' does not exist (looked for "
                    + path.toAbsolutePath() + "); give an existing file's path or file: URL");
        }
        if (Files.isDirectory(path)) {
            throw couldNotOpen.apply(kind + " '" + designator + "' is a folder; name the XML file in it");
        }
        try {
            return Files.readAllBytes(path);
        } catch (IOException e) {
            throw couldNotOpen.apply(kind + " '" + designator + "' cannot be read (" + e
                    + "); check the file's permissions");
        }
    }

    /** Reads a MIM, which may add to the standard one but has to have all of that. */
    public FomModule readMim(ModuleSource source) throws RTIexception {
        FomModule mim = read(source);
        try {
            Set<String> missing = ObjectModel.of(standardMim(), List.of()).names();
            missing.removeAll(ObjectModel.of(mim, List.of()).names());
            if (!missing.isEmpty()) {
                int others = missing.size() - MISSING_NAMES_SHOWN;
                throw couldNotRead.apply(mim + " lacks what the standard MIM has: "
                        + missing.stream().limit(MISSING_NAMES_SHOWN).collect(Collectors.joining(", "))
                        + (others > 0 ? " and " + others + " more" : "") + "; begin with a copy of the standard MIM");
            }
        } catch (InconsistentFDD e) {
            throw couldNotRead.apply(e.getMessage());
        }
        return mim;
    }

    private Path locate(String designator) throws RTIexception {
        if (designator.isBlank()) {
            throw couldNotOpen.apply("The designator of a " + kind + " is empty; give a path or a file: URL");
        }
        try {
            return designator.toLowerCase(Locale.ROOT).startsWith("file:") ? Path.of(fileUri(designator))
                    : Path.of(designator);
        } catch (URISyntaxException | IllegalArgumentException e) {
            throw couldNotOpen.apply(kind + " '" + designator + "' is neither a path nor a file: URL ("
                    + e.getMessage() + ")");
        }
    }

    /** Accepts file:/x, file:///x and file://localhost/x, also with blanks that should have been %20. */
    private static URI fileUri(String designator) throws URISyntaxException {
        String rest = designator.substring("file:".length()).replace(" ", "%20");
        if (rest.startsWith("//localhost/")) {
            rest = rest.substring("//localhost".length());
        }
        URI uri = new URI("file:" + rest);
        URI absolute = uri.isOpaque() ? Path.of("").toUri().resolve(new URI(uri.getRawSchemeSpecificPart())) : uri;
        return new URI(absolute.toASCIIString());
    }

    private FomModule parse(String designator, InputStream in) throws RTIexception, IOException {
        TreeBuilder builder = new TreeBuilder();
        byte[] bytes = in.readAllBytes();
        try {
            parser().parse(new InputSource(new ByteArrayInputStream(bytes)), builder);
        } catch (SAXParseException e) {
            throw couldNotRead.apply(kind + " '" + designator + "', line " + e.getLineNumber()
                    + ": " + e.getMessage() + "; correct the XML there");
        } catch (SAXException e) {
            throw couldNotRead.apply(kind + " '" + designator + "' is not XML: " + e.getMessage());
        } catch (CharConversionException | UnsupportedEncodingException e) {
            throw couldNotRead.apply(kind + " '" + designator
                    + "' is not text in the encoding that it declares (" + e.getMessage() + ")");
        }
        FomElement root = builder.root;
        if (!root.tag.equals("objectModel")) {
            throw couldNotRead.apply(kind + " '" + designator + "', line " + root.line + ": the root element is '"
                    + root.tag + "' where an object model has 'objectModel'; name an HLA object model file");
        }
        return new FomModule(isMim, designator, new String(bytes, builder.encoding), root);
    }

    private static SAXParser parser() throws SAXException {
        try {
            SAXParserFactory factory = SAXParserFactory.newDefaultNSInstance();
            factory.setFeature(XMLConstants.FEATURE_SECURE_PROCESSING, true);
            factory.setFeature("http://xml.org/sax/features/external-general-entities", false);
            factory.setFeature("http://xml.org/sax/features/external-parameter-entities", false);
            factory.setFeature("http://apache.org/xml/features/nonvalidating/load-external-dtd", false);
            return factory.newSAXParser();
        } catch (ParserConfigurationException e) {
            throw new IllegalStateException("The Java run-time has no usable XML parser: " + e.getMessage(), e);
        }
    }

    private static final class TreeBuilder extends DefaultHandler {
        private final Deque<FomElement> open = new ArrayDeque<>();
        private FomElement root;
        private Locator locator;
        private String encoding = "UTF-8"; // as read, which the parser knows once it is at the root

        @Override
        public void setDocumentLocator(Locator theLocator) {
            locator = theLocator;
        }

        @Override
        public InputSource resolveEntity(String publicId, String systemId) {
            return new InputSource(InputStream.nullInputStream());
        }

        @Override
        public void startElement(String uri, String name, String qualifiedName, Attributes attributes)
                throws SAXException {
            if (open.size() == MAXIMUM_DEPTH) {
                throw new SAXParseException("elements are nested deeper than " + MAXIMUM_DEPTH, locator);
            }
            FomElement element = new FomElement(name, locator.getLineNumber(), false);
            for (int i = 0; i < attributes.getLength(); ++i) {
                FomElement attribute = new FomElement(attributes.getLocalName(i), element.line, true);
                char[] text = attributes.getValue(i).toCharArray();
                attribute.addText(text, 0, text.length);
                element.add(attribute);
            }
            if (root == null) {
                root = element;
                if (locator instanceof Locator2 detailed && detailed.getEncoding() != null) {
                    encoding = detailed.getEncoding();
                }
            } else {
                open.peek().add(element);
            }
            open.push(element);
        }

        @Override
        public void endElement(String uri, String name, String qualifiedName) {
            open.pop();
        }

        @Override
        public void characters(char[] characters, int start, int length) {
            open.peek().addText(characters, start, length);
        }

        @Override
        public void fatalError(SAXParseException e) throws SAXException {
            throw e; // the default prints as well
        }
    }
}
